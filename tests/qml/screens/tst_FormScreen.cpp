// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/qml/screens/ScreenTest.h"
#include "tests/support/FileTree.h"

using namespace Tavro::Test;

namespace {

/** Adds files that a user might name. */
class FormScreenTest : public ScreenTest
{
    Q_OBJECT
    Q_PROPERTY(QString directory READ directory CONSTANT)

public:
    FormScreenTest()
    {
        ::Test::makeFile(m_directory.filePath(QStringLiteral("broken.json")), "{\n\"id\": }");
        ::Test::makeFile(
            m_directory.filePath(QStringLiteral("drains.json")),
            R"({"format": 1, "id": "d", "name": "Drains", "country": "D", "language": "DEU",
                "template": {"id": "t", "views": [
                    {"key": "detail_d", "columns": [{"key": "DRN_Name", "unit": "°"}]}]}})");
    }

    QString directory() const { return m_directory.path(); }

private:
    ::Test::TemporaryFolder m_directory;
};

} // namespace

int main(int argc, char *argv[])
{
    return runScreenTest(argc, argv, "tst_FormScreen",
                         []() -> ScreenTest * { return new FormScreenTest; });
}

#include "tst_FormScreen.moc"
