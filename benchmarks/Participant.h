#pragma once

#include <string>
#include <vector>

namespace Tavro::Benchmarks {

/** What a participant's process did. */
struct Outcome
{
    double seconds = 0; /**< from just before it was started until it was gone */
    std::string output; /**< its standard output */
};

/**
 * Runs @p command, found on PATH, with its arguments and waits for its end. Ends this program
 * with a message when it cannot be started or fails: the time of a failed copy means nothing.
 */
Outcome runParticipant(const std::vector<std::string> &command);

/** Path of @p name in the directory of the running program, where the build puts all of them. */
std::string siblingProgram(const std::string &name);

} // namespace Tavro::Benchmarks
