// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/CFileSystemHelper.h"
#include "tests/support/FileTree.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

using Tavro::Shared::CFileSystemHelper;

class tst_UniqueFileName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyDirectoryGetsTheFirstNumber();
    void nameHoldsTheLocalMinute();
    void digitsAreAsciiInAnyLanguage();
    void takenNumbersOfTheMinuteArePassedOver();
    void numberIsTheFirstThatIsFree_data();
    void numberIsTheFirstThatIsFree();
    void prefixIsMadeValid_data();
    void prefixIsMadeValid();
    void pathStandsInFront_data();
    void pathStandsInFront();
    void nothingIsReserved();
    void manyNamesCostOnePassOverThem();

private:
    QString folder() const { return m_folder->path(); }
    void make(const QString &name) const { Test::makeFile(m_folder->filePath(name)); }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_UniqueFileName::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
}

void tst_UniqueFileName::cleanup()
{
    m_folder.reset();
}

void tst_UniqueFileName::emptyDirectoryGetsTheFirstNumber()
{
    const QString name =
        CFileSystemHelper::createUniqueFileName(folder(), QStringLiteral("jpg"), false);
    const QRegularExpression form(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d_0001\\.jpg$"));
    QVERIFY2(form.match(name).hasMatch(), qPrintable(name));
    const QString missing = CFileSystemHelper::createUniqueFileName(
        folder() + QStringLiteral("/missing"), QStringLiteral("jpg"), false);
    QVERIFY2(form.match(missing).hasMatch(), qPrintable(missing));
}

void tst_UniqueFileName::nameHoldsTheLocalMinute()
{
    const auto restore = qScopeGuard([before = qgetenv("TZ")] {
        qputenv("TZ", before);
        tzset();
    });
    qputenv("TZ", "Asia/Kathmandu"); // minutes differ, too
    tzset();
    const auto minute = [] {
        return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm_"));
    };
    const QString before = minute();
    const QString name = CFileSystemHelper::createUniqueFileName(folder(), QString(), false);
    const QString after = minute();
    QVERIFY(name.startsWith(before) || name.startsWith(after));
    QCOMPARE(name.size(), before.size() + 4);
}

void tst_UniqueFileName::digitsAreAsciiInAnyLanguage()
{
    const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QString name = CFileSystemHelper::createUniqueFileName(folder(), QString(), false);
    for (const QChar c : name) {
        QVERIFY(c.unicode() < 128);
    }
}

void tst_UniqueFileName::takenNumbersOfTheMinuteArePassedOver()
{
    const QString jpg = QStringLiteral("jpg");
    QString stem;
    QString name;
    do { // until no minute ends in between
        stem = CFileSystemHelper::createUniqueFileName(folder(), QString(), false).chopped(4);
        make(stem + QStringLiteral("0001.jpg"));
        make(stem + QStringLiteral("0002.jpg"));
        name = CFileSystemHelper::createUniqueFileName(folder(), jpg, false);
    } while (!name.startsWith(stem));
    QCOMPARE(name, stem + QStringLiteral("0003.jpg"));
}

void tst_UniqueFileName::numberIsTheFirstThatIsFree_data()
{
    QTest::addColumn<QStringList>("existing");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *title, const char *existing, const char *extension,
                        const char *name) {
        QTest::newRow(title) << QString::fromUtf8(existing).split(QLatin1Char(' '),
                                                                  Qt::SkipEmptyParts)
                             << QString::fromUtf8(extension) << QString::fromUtf8(name);
    };
    row("nothing there", "", "jpg", "p_0001.jpg");
    row("extension with its point", "p_0001.jpg", ".jpg", "p_0002.jpg");
    row("two in a row", "p_0001.jpg p_0002.jpg", "jpg", "p_0003.jpg");
    row("a gap", "p_0001.jpg p_0003.jpg", "jpg", "p_0002.jpg");
    row("first is free", "p_0002.jpg p_0003.jpg", "jpg", "p_0001.jpg");
    row("number nought", "p_0000.jpg", "jpg", "p_0001.jpg");
    row("other extension", "p_0001.png", "jpg", "p_0001.jpg");
    row("other prefix", "q_0001.jpg pp_0001.jpg p0001.jpg", "jpg", "p_0001.jpg");
    row("extension in capitals", "p_0001.JPG", "jpg", "p_0001.jpg");
    row("prefix in capitals", "P_0001.jpg", "jpg", "p_0001.jpg");
    row("too few digits", "p_1.jpg p_001.jpg", "jpg", "p_0001.jpg");
    row("too many digits", "p_00001.jpg", "jpg", "p_0001.jpg");
    row("sign", "p_+001.jpg p_-001.jpg", "jpg", "p_0001.jpg");
    row("something behind the number", "p_0001a.jpg p_0001.a.jpg", "jpg", "p_0001.jpg");
    row("hidden file", ".p_0001.jpg", "jpg", "p_0001.jpg");
    row("two points", "p_0001.tar.gz", "tar.gz", "p_0002.tar.gz");
    row("part of the extension", "p_0001.tar.gz", "gz", "p_0001.gz");
    row("no extension", "p_0001", "", "p_0002");
    row("no extension, any counts", "p_0001.txt p_0002.tar.gz", "", "p_0003");
    row("no extension, same number twice", "p_0001.txt p_0001.jpg", "", "p_0002");
    row("only a point", "p_0001.", ".", "p_0002.");
    row("wildcard is no literal", "p_0001.[x] p_0002.x", "[x]", "p_0001.[x]");
    row("star is one, and a literal", "p_0001.*", "*", "p_0002.*");
}

void tst_UniqueFileName::numberIsTheFirstThatIsFree()
{
    QFETCH(QStringList, existing);
    QFETCH(QString, extension);
    for (const QString &name : qAsConst(existing)) {
        make(name);
    }
    QVERIFY(QDir().mkdir(m_folder->filePath(QStringLiteral("p_0001")))
            || QFileInfo(m_folder->filePath(QStringLiteral("p_0001"))).isFile()); // not a file
    QTEST(CFileSystemHelper::createUniqueFileNameWithPrefix(folder(), QStringLiteral("p"),
                                                            extension, false),
          "name");
}

void tst_UniqueFileName::prefixIsMadeValid_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("Clip") << QStringLiteral("Clip_0001.avi");
    QTest::newRow("invalid characters")
        << QStringLiteral("a/b.c ") << QStringLiteral("a_b_c_0001.avi");
    QTest::newRow("empty") << QString() << QStringLiteral("_0001.avi");
}

void tst_UniqueFileName::prefixIsMadeValid()
{
    QFETCH(QString, prefix);
    QTEST(CFileSystemHelper::createUniqueFileNameWithPrefix(folder(), prefix, QStringLiteral("avi"),
                                                            false),
          "name");
}

void tst_UniqueFileName::pathStandsInFront_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("without a slash") << QString();
    QTest::newRow("with a slash") << QStringLiteral("/");
}

void tst_UniqueFileName::pathStandsInFront()
{
    QFETCH(QString, end);
    make(QStringLiteral("p_0001.jpg"));
    QCOMPARE(CFileSystemHelper::createUniqueFileNameWithPrefix(folder() + end, QStringLiteral("p"),
                                                               QStringLiteral("jpg"), true),
             folder() + QStringLiteral("/p_0002.jpg"));
    const QString name =
        CFileSystemHelper::createUniqueFileName(folder() + end, QStringLiteral("jpg"), true);
    QVERIFY(name.startsWith(folder() + QStringLiteral("/2")));
    QVERIFY(name.endsWith(QStringLiteral("_0001.jpg")));
}

void tst_UniqueFileName::nothingIsReserved()
{
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(CFileSystemHelper::createUniqueFileNameWithPrefix(folder(), QStringLiteral("p"),
                                                                   QString(), false),
                 QStringLiteral("p_0001"));
    }
    QVERIFY(QDir(folder()).isEmpty());
}

// Asking for each number in turn among so many names would take longer than the test may.
void tst_UniqueFileName::manyNamesCostOnePassOverThem()
{
    constexpr int count = 100'000;
    const QByteArray prefix = folder().toUtf8() + "/p_";
    for (int i = 1; i <= count; ++i) {
        QFile file(
            QString::fromUtf8(prefix + QByteArray::number(i).rightJustified(4, '0') + ".jpg"));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(CFileSystemHelper::createUniqueFileNameWithPrefix(folder(), QStringLiteral("p"),
                                                               QStringLiteral("jpg"), false),
             QStringLiteral("p_100001.jpg"));
}

QTEST_GUILESS_MAIN(tst_UniqueFileName)

#include "tst_UniqueFileName.moc"
