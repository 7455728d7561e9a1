// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Two threads count in one variable without asking each other.
#include <thread>

int main()
{
    int count = 0;
    const auto work = [&count] {
        for (int i = 0; i < 100000; ++i) {
            ++count;
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    return count > 0 ? 0 : 1;
}
