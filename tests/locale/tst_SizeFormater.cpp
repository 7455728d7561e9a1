// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/SizeFormater.h"

#include <QLocale>
#include <QTest>

#include <limits>
#include <type_traits>

using Tavro::Shared::SizeFormater;

namespace {

constexpr long long s_kilo = 1024;

} // namespace

class tst_SizeFormater : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainClass();
    void sizesGetTheUnitOfTheirCount_data();
    void sizesGetTheUnitOfTheirCount();
    void localeDoesNotMatter();
};

void tst_SizeFormater::isAPlainClass()
{
    static_assert(std::is_trivially_default_constructible_v<SizeFormater>);
    static_assert(std::is_empty_v<SizeFormater>);
}

void tst_SizeFormater::sizesGetTheUnitOfTheirCount_data()
{
    QTest::addColumn<qlonglong>("bytes");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, long long bytes, const char *expected) {
        QTest::newRow(name) << bytes << QString::fromLatin1(expected);
    };
    row("nothing", 0, "0.0 B");
    row("one", 1, "1.0 B");
    row("the last in bytes", 1023, "1023.0 B");
    row("the first in KB", 1024, "1.0 KB");
    row("a tenth is not reached", 1024 + 51, "1.0 KB");
    row("a tenth is rounded to", 1024 + 52, "1.1 KB");
    row("1.5 KB", 1536, "1.5 KB");
    row("the last in KB", 1048575, "1024.0 KB");
    row("the first in MB", 1048576, "1.0 MB");
    row("1.5 MB", 1572864, "1.5 MB");
    row("the last in MB", s_kilo * s_kilo * s_kilo - 1, "1024.0 MB");
    row("the first in GB", s_kilo * s_kilo * s_kilo, "1.0 GB");
    row("the last in GB", (1LL << 40) - 1, "1024.0 GB");
    row("the first in TB", 1LL << 40, "1.0 TB");
    row("the last in TB", (1LL << 50) - 1, "1024.0 TB");
    row("the first in PB", 1LL << 50, "1.0 PB");
    row("the last in PB", (1LL << 60) - 1, "1024.0 PB");
    row("the first in EB", 1LL << 60, "1.0 EB");
    row("the largest", std::numeric_limits<long long>::max(), "8.0 EB");
    row("minus one", -1, "-1.0 B");
    row("negative", -2048, "-2048.0 B");
    row("the smallest", std::numeric_limits<long long>::min(), "-9223372036854775808.0 B");
}

void tst_SizeFormater::sizesGetTheUnitOfTheirCount()
{
    QFETCH(qlonglong, bytes);
    QTEST(SizeFormater::toString(bytes), "expected");
}

void tst_SizeFormater::localeDoesNotMatter()
{
    const QLocale before;
    for (const QLocale &locale :
         {QLocale(QLocale::German, QLocale::Germany), QLocale(QLocale::Persian, QLocale::Iran)}) {
        QLocale::setDefault(locale);
        const QString text = SizeFormater::toString(1536);
        QLocale::setDefault(before);
        QCOMPARE(text, QStringLiteral("1.5 KB"));
    }
}

QTEST_APPLESS_MAIN(tst_SizeFormater)

#include "tst_SizeFormater.moc"
