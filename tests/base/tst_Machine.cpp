// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/CFileSystemHelper.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/types.h>

#include <atomic>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <limits>

using Tavro::Shared::CFileSystemHelper;

/** What the code takes for granted of every machine, and in what the tablet is not a PC. */
class tst_Machine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sizesAndTimesHave64Bits();
    void timesGoOnTo2107();
    void filesGrowPast4GiB();
    void tabletIsNoPc();
    void numbersOf64BitsAreWrittenAtOnce();
    void sumsOfDoublesAreNotWidened();
    void bytesOfAnUnalignedNumberAreRead();
};

void tst_Machine::sizesAndTimesHave64Bits()
{
    QCOMPARE(sizeof(off_t), std::size_t(8));
    QCOMPARE(sizeof(time_t), std::size_t(8));
    QCOMPARE(sizeof(ino_t), std::size_t(8));
    QCOMPARE(sizeof(qlonglong), std::size_t(8));
    QCOMPARE(sizeof(double), std::size_t(8));
}

void tst_Machine::timesGoOnTo2107()
{
    std::tm last = {}; // of a FAT drive
    last.tm_year = 2107 - 1900;
    last.tm_mon = 11;
    last.tm_mday = 31;
    last.tm_hour = 23;
    last.tm_min = 59;
    last.tm_sec = 58;
    const time_t seconds = ::timegm(&last);
    QCOMPARE(qint64(seconds), Q_INT64_C(4354819198));

    QTemporaryDir directory;
    const QByteArray path = QFile::encodeName(directory.filePath(QStringLiteral("file")));
    QFile file(QFile::decodeName(path));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const timespec times[2] = {{seconds, 0}, {seconds, 0}};
    QCOMPARE(::futimens(file.handle(), times), 0);
    struct stat info = {};
    QCOMPARE(::stat(path.constData(), &info), 0);
    QCOMPARE(qint64(info.st_mtime), qint64(seconds));
}

void tst_Machine::filesGrowPast4GiB()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("video"));
    const qint64 size = Q_INT64_C(5) << 30;
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(size)); // a hole
    QVERIFY(file.seek(size - 1));
    QCOMPARE(file.write("x"), Q_INT64_C(1));
    file.close();
    QCOMPARE(QFileInfo(path).size(), size);
    QCOMPARE(CFileSystemHelper::getDirectorySize(directory.path()), size);
}

void tst_Machine::tabletIsNoPc()
{
#if defined(__arm__)
    QCOMPARE(sizeof(void *), std::size_t(4));
    QCOMPARE(sizeof(long), std::size_t(4));
    QCOMPARE(sizeof(std::size_t), std::size_t(4));
    QCOMPARE(std::numeric_limits<long double>::digits, 53); // a double
    QVERIFY(!std::numeric_limits<char>::is_signed);
    QCOMPARE(alignof(qint64), std::size_t(8)); // unlike 32 bits of x86
#elif defined(__x86_64__)
    QCOMPARE(sizeof(void *), std::size_t(8));
    QCOMPARE(sizeof(long), std::size_t(8));
    QCOMPARE(std::numeric_limits<long double>::digits, 64);
#endif
    QCOMPARE(Q_BYTE_ORDER, Q_LITTLE_ENDIAN);
}

void tst_Machine::numbersOf64BitsAreWrittenAtOnce()
{
    // progress is read in one thread and written in another
    QVERIFY(std::atomic<qint64>().is_lock_free());
}

void tst_Machine::sumsOfDoublesAreNotWidened()
{
    volatile double a = 0.1;
    volatile double b = 0.2;
    volatile double c = 0.3;
    QVERIFY(a + b != c);
    QVERIFY(a + b - c == 5.5511151231257827e-17);
    volatile double large = 9007199254740992.0; // 2^53
    QVERIFY(large + 1 == large);
    QVERIFY(large + 1 + 1 == large); // would be two more in a wider register
}

void tst_Machine::bytesOfAnUnalignedNumberAreRead()
{
    // as in a boot sector, where numbers stand at odd offsets
    const char bytes[] = {'\0', '\xFF', '\x80', '\x01', '\xFE', '\0'};
    for (int offset = 0; offset < 2; ++offset) {
        quint32 number = 0;
        std::memcpy(&number, bytes + offset, sizeof number);
        QCOMPARE(number, offset == 0 ? 0x0180FF00U : 0xFE0180FFU);
    }
}

QTEST_GUILESS_MAIN(tst_Machine)

#include "tst_Machine.moc"
