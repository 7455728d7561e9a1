// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/NativeName.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tavro::Shared::detail;

class tst_NativeName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsWhatStandsBehindThePosition_data();
    void nameIsWhatStandsBehindThePosition();
    void pathThatEndsEarlierForTheSystemHasNoName();
    void bytesThatNoTextMeansAreNotAddressable_data();
    void bytesThatNoTextMeansAreNotAddressable();
    void searchPathsAreResolved();
    void resourcesAreTold();
};

void tst_NativeName::nameIsWhatStandsBehindThePosition_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("begin");
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("plain") << QStringLiteral("/a/name") << 3 << QByteArray("name");
    QTest::newRow("from the beginning") << QStringLiteral("/a/name") << 0 << QByteArray("/a/name");
    QTest::newRow("nothing is left") << QStringLiteral("/a/") << 3 << QByteArray("");
    QTest::newRow("umlaut") << QStringLiteral("/a/Gr\u00fcn") << 3 << QByteArray("Gr\xc3\xbcn");
    QTest::newRow("umlaut before it") << QStringLiteral("/\u00fc/name") << 3 << QByteArray("name");
    QTest::newRow("the last letter that takes one byte")
        << QStringLiteral("/a/\u007f") << 3 << QByteArray("\x7f");
    QTest::newRow("the first that takes two")
        << QStringLiteral("/a/\u0080") << 3 << QByteArray("\xc2\x80");
    QTest::newRow("255 bytes") << QString(255, QLatin1Char('n')) << 0 << QByteArray(255, 'n');
    QTest::newRow("256 bytes") << QString(256, QLatin1Char('n')) << 0 << QByteArray(256, 'n');
    QTest::newRow("a long path, a short name")
        << QString(4000, QLatin1Char('p')) + QStringLiteral("/name") << 4001 << QByteArray("name");
}

void tst_NativeName::nameIsWhatStandsBehindThePosition()
{
    QFETCH(QString, path);
    QFETCH(int, begin);
    QTEST(QByteArray(NativeName(path, begin).get()), "name");
}

void tst_NativeName::pathThatEndsEarlierForTheSystemHasNoName()
{
    QVERIFY(isNameable(QStringLiteral("/a")));
    QVERIFY(!isNameable(QString()));
    QVERIFY(!isNameable(QStringLiteral("/a") + QChar(0) + QStringLiteral("b")));
}

void tst_NativeName::bytesThatNoTextMeansAreNotAddressable_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("addressable");

    QTest::newRow("plain") << QByteArray("name") << true;
    QTest::newRow("umlaut") << QByteArray("Gr\xc3\xbcn") << true;
    QTest::newRow("umlaut of Latin-1") << QByteArray("Gr\xfcn") << false;
    QTest::newRow("a letter that is cut off") << QByteArray("Gr\xc3") << false;
    QTest::newRow("a slash in two bytes") << QByteArray("\xc0\xaf") << false;
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbfname") << true;
}

void tst_NativeName::bytesThatNoTextMeansAreNotAddressable()
{
    QFETCH(QByteArray, name);
    QTEST(isAddressable(name.constData()), "addressable");
}

void tst_NativeName::searchPathsAreResolved()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("there")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QDir::setSearchPaths(QStringLiteral("somewhere"), {directory.path()});

    QCOMPARE(resolvedPath(QStringLiteral("somewhere:there")), file.fileName());
    QCOMPARE(resolvedPath(QStringLiteral("/a/b:c")), QStringLiteral("/a/b:c"));
    QCOMPARE(resolvedPath(QStringLiteral("name")), QStringLiteral("name"));
    // a prefix has two letters at least
    QDir::setSearchPaths(QStringLiteral("xy"), {directory.path()});
    QCOMPARE(resolvedPath(QStringLiteral("xy:there")), file.fileName());
    QCOMPARE(resolvedPath(QStringLiteral("x:there")), QStringLiteral("x:there"));

    QDir::setSearchPaths(QStringLiteral("somewhere"), {});
    QDir::setSearchPaths(QStringLiteral("xy"), {});
}

void tst_NativeName::resourcesAreTold()
{
    QVERIFY(isResource(QStringLiteral(":/name")));
    QVERIFY(!isResource(QStringLiteral("/:name")));
    QVERIFY(!isResource(QString()));
}

QTEST_APPLESS_MAIN(tst_NativeName)

#include "tst_NativeName.moc"
