// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/qml/screens/FileScreenTest.h"
#include "tests/support/PrivateMounts.h"

int main(int argc, char *argv[])
{
    Test::PrivateMounts::enter();
    return Tavro::Test::runScreenTest(
        argc, argv, "tst_ExportScreen",
        []() -> Tavro::Test::ScreenTest * { return new Tavro::Test::FileScreenTest; });
}
