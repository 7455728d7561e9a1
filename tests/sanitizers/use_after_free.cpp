// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Reads a piece of memory that it has given back.
int main(int argc, char **)
{
    int *const values = new int[4]{argc, 0, 0, 0};
    int *volatile kept = values;
    delete[] values;
    return kept[0] == argc ? 0 : 1;
}
