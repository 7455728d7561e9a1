// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/RepeatedTexts.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace Tavro::FieldHost {

namespace {

size_t hashOf(const QString &text)
{
    return std::hash<std::u16string_view>()(
        {reinterpret_cast<const char16_t *>(text.utf16()), static_cast<size_t>(text.size())});
}

} // namespace

RepeatedTexts::RepeatedTexts(int count)
{
    m_hashes.reserve(static_cast<size_t>(count));
}

void RepeatedTexts::add(const QString &text)
{
    m_hashes.push_back(hashOf(text));
}

void RepeatedTexts::find()
{
    std::sort(m_hashes.begin(), m_hashes.end());
    std::vector<size_t> repeated;
    for (size_t i = 1; i < m_hashes.size(); ++i) {
        if (m_hashes[i] == m_hashes[i - 1]) {
            repeated.push_back(m_hashes[i]);
        }
    }
    m_hashes = std::move(repeated);
}

bool RepeatedTexts::mayHold(const QString &text) const
{
    return std::binary_search(m_hashes.begin(), m_hashes.end(), hashOf(text));
}

} // namespace Tavro::FieldHost
