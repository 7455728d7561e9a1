// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Counts past the largest int.
#include <limits>

int main(int argc, char **)
{
    const int sum = std::numeric_limits<int>::max() - 1 + argc + argc;
    return sum == 0 ? 1 : 0;
}
