// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogFiles.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/qml/screens/ScreenTest.h"
#include "tests/support/FileTree.h"

#include <QLocale>
#include <QTemporaryDir>

using Tavro::Shared::GlobalLocaleData;

namespace {

/** Catalogs that cannot be used, or only in part, beside those that the program brings. */
class LocaleScreenTest : public Tavro::Test::ScreenTest
{
    Q_OBJECT

public:
    LocaleScreenTest()
    {
        GlobalLocaleData::instance()->setDeviceLocale(QLocale(QStringLiteral("en_GB")));
        ::Test::makeFile(path(QStringLiteral("broken.json")), "{\n  \"id\": 7\n}\n");
        QFile sample(QStringLiteral(":/catalogs/metric.json"));
        if (!sample.open(QIODevice::ReadOnly)) {
            qFatal("the program brings no catalog");
        }
        QByteArray strange = sample.readAll();
        strange.replace("\"country\": \"D\"", "\"country\": \"XX\"");
        strange.replace("\"language\": \"DEU\"", "\"language\": \"FRA\""); // texts stay English
        ::Test::makeFile(path(QStringLiteral("strange.json")), strange);
    }

    /** Path of a file of the test. */
    Q_INVOKABLE QString path(const QString &name) const { return m_directory.filePath(name); }

private:
    QTemporaryDir m_directory;
};

} // namespace

int main(int argc, char *argv[])
{
    return Tavro::Test::runScreenTest(
        argc, argv, "tst_LocaleScreen",
        []() -> Tavro::Test::ScreenTest * { return new LocaleScreenTest; });
}

#include "tst_LocaleScreen.moc"
