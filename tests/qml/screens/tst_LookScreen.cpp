// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/qml/screens/ScreenTest.h"

int main(int argc, char *argv[])
{
    return Tavro::Test::runScreenTest(argc, argv, "tst_LookScreen");
}
