// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace Test {

/**
 * The number that a text stands for: decimal, 32 bits, with a sign or none, blanks around it; 0
 * when it is none. Written by hand, as Qt's own conversion is what the library uses.
 */
inline int numberIn(std::string_view text)
{
    const std::string_view blanks = " \t\n\v\f\r";
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    while (!text.empty() && blanks.find(text.front()) != std::string_view::npos) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blanks.find(text.back()) != std::string_view::npos) {
        text.remove_suffix(1);
    }
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    long long number = 0;
    for (const char c : text) {
        if (!isDigit(c)) {
            return 0;
        }
        number = number * 10 + (c - '0');
        if (number > 2147483648LL) {
            return 0;
        }
    }
    number = negative ? -number : number;
    return number > 2147483647LL ? 0 : static_cast<int>(number);
}

/**
 * The key of the sample that comes after what stands in a clip information file, found in one
 * pass from its beginning.
 */
inline std::string nextKey(std::string_view content)
{
    std::string number; // behind the last "Val", up to the last "=" so far
    std::string pending; // what follows that
    bool inValue = false;
    int matched = 0; // letters of "Val" just read
    for (const char c : content) {
        if (c == '\r') {
            continue; // files are read in text mode
        }
        if (c == '=' && inValue) {
            number += pending;
            pending = "=";
        } else if (inValue) {
            pending += c;
        }
        matched = c == "Val"[matched] ? matched + 1 : (c == 'V' ? 1 : 0);
        if (matched == 3) {
            inValue = true;
            number.clear();
            pending.clear();
            matched = 0;
        }
    }
    const long long next = numberIn(number) + 1LL;
    char key[24];
    // the number after the largest is the smallest
    std::snprintf(key, sizeof key, "Val%05lld", next > 2147483647LL ? -2147483648LL : next);
    return key;
}

} // namespace Test
