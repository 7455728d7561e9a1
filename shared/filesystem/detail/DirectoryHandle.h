// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/filesystem/detail/Descriptor.h"

namespace Tavro::Shared::detail {

/** What becomes of a symbolic link that is met. */
enum class Links {
    Follow, // what it points to stands in its place
    Refuse, // it is neither opened nor listed
};

/** An open directory. */
class DirectoryHandle : public Descriptor
{
public:
    DirectoryHandle() = default;

    /** Opens a directory by its path; @p links is about the path itself, not what leads there. */
    static DirectoryHandle open(const char *path, Links links);
    /** Opens what @p name means in @p directory; @p links says what to do when it is a link. */
    static DirectoryHandle openBelow(int directory, const char *name, Links links = Links::Refuse);

private:
    using Descriptor::Descriptor;
};

} // namespace Tavro::Shared::detail
