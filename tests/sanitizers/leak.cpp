// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Loses its only pointer to a piece of memory.
#include <cstdlib>

int main()
{
    void *volatile memory = std::malloc(100);
    memory = nullptr;
    return memory == nullptr ? 0 : 1;
}
