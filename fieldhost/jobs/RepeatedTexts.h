// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

namespace Tavro::FieldHost {

/**
 * Finds the texts that occur more than once among very many, in eight bytes for each. A text that
 * occurs once is hardly ever taken for one of them.
 */
class RepeatedTexts
{
public:
    /** Room for @p count texts. */
    explicit RepeatedTexts(int count);
    void add(const QString &text);
    /** Ends the adding. */
    void find();
    /** After find(): no text occurs twice. */
    bool isEmpty() const { return m_hashes.empty(); }
    /** False when @p text certainly occurs once at the most. */
    bool mayHold(const QString &text) const;

private:
    std::vector<size_t> m_hashes; // of all texts, and after find() of the repeated ones, sorted
};

} // namespace Tavro::FieldHost
