// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// What formatting and parsing cost over the bare call of QLocale that does the work.

#include "benchmarks/MicroBenchmark.h"

#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/DoubleFormater.h"
#include "shared/locale/GlobalLocaleData.h"
#include "shared/locale/LengthUnitsConverter.h"
#include "shared/locale/SizeFormater.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QVariant>

using namespace Tavro::Shared;
using Tavro::Benchmarks::MicroBenchmark;

namespace {

constexpr double s_target = 1.5; // times the bare call
constexpr double s_convertTarget = 50; // ns

constexpr double s_number = 1234.567;

const char s_numberPeer[] = "toString(double)";

void compareDistances(MicroBenchmark &page, const QLocale &locale)
{
    for (const bool twoDecimals : {true, false}) {
        const int decimals = twoDecimals ? 2 : 1;
        const auto peer = [=] { return locale.toString(s_number, 'f', decimals); };
        const std::string suffix = twoDecimals ? "two decimals" : "one decimal";
        page.compare(
            "distance to text, " + suffix,
            [=] {
                return CLocaleSupport::distanceValueToLocalizedString(s_number, false, twoDecimals);
            },
            s_numberPeer, peer, s_target);
        page.compare(
            "distance to text, " + suffix + ", unit",
            [=] {
                return CLocaleSupport::distanceValueToLocalizedString(s_number, true, twoDecimals);
            },
            s_numberPeer, peer, s_target);
    }

    const QString ownMark = locale.toString(s_number, 'f', 2);
    QString otherMark = ownMark;
    otherMark.replace(locale.decimalPoint(), QLatin1Char('.'));
    for (const QString &text : {ownMark, otherMark}) {
        page.compare(
            "distance from \"" + text.toStdString() + '"',
            [=] { return CLocaleSupport::distanceValueFromLocalizedString(text); },
            "toDouble(text)", [=] { return locale.toDouble(ownMark); }, s_target);
    }
}

void compareVariants(MicroBenchmark &page, const QLocale &locale)
{
    const QDateTime time(QDate(2026, 3, 31), QTime(17, 5, 8));
    const QDate date = time.date();
    const QTime timeOfDay = time.time();
    const QString none;
    const auto show = [&page](std::string name, const QVariant &value, const QString &format,
                              std::string peerName, auto peer) {
        page.compare(
            std::move(name),
            [=] { return CLocaleSupport::variantToLocalizedString(value, format); },
            std::move(peerName), peer, s_target);
    };

    show("variant, int", 1234, none, "toString(int)", [=] { return locale.toString(1234); });
    show("variant, unsigned int", 1234U, none, "toString(uint)",
         [=] { return locale.toString(1234U); });
    show("variant, 64 bits", Q_INT64_C(1234567890123), none, "toString(qlonglong)",
         [=] { return locale.toString(Q_INT64_C(1234567890123)); });
    show("variant, unsigned, 64 bits", Q_UINT64_C(1234567890123), none, "toString(qulonglong)",
         [=] { return locale.toString(Q_UINT64_C(1234567890123)); });
    show("variant, whole double", 1234.0, none, "toString(int)",
         [=] { return locale.toString(1234); });
    show("variant, double", s_number, none, s_numberPeer,
         [=] { return locale.toString(s_number, 'f', 2); });

    const QLocale::FormatType shortForm = QLocale::ShortFormat;
    show("variant, date", date, none, "toString(date)",
         [=] { return locale.toString(date, shortForm); });
    show("variant, time", timeOfDay, none, "toString(time)",
         [=] { return locale.toString(timeOfDay, shortForm); });
    show("variant, date and time", time, none, "toString(date and time)",
         [=] { return locale.toString(time, shortForm); });
    const QString dateFormat = QStringLiteral("dd.MM.yyyy");
    const QString timeFormat = QStringLiteral("HH:mm:ss");
    const QString format = dateFormat + QLatin1Char(' ') + timeFormat;
    show("variant, date by a format", date, dateFormat, "toString(date, format)",
         [=] { return locale.toString(date, dateFormat); });
    show("variant, time by a format", timeOfDay, timeFormat, "toString(time, format)",
         [=] { return locale.toString(timeOfDay, timeFormat); });
    show("variant, date and time by a format", time, format, "toString(date and time, format)",
         [=] { return locale.toString(time, format); });
}

void compareFormats(MicroBenchmark &page, const QLocale &locale)
{
    page.compare(
        "date format", &CLocaleSupport::getDateFormat, "dateFormat(), replace()",
        [=] {
            return locale.dateFormat(QLocale::ShortFormat)
                .replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
        },
        s_target);
    page.compare(
        "time format", &CLocaleSupport::getTimeFormat, "timeFormat()",
        [=] { return locale.timeFormat(QLocale::LongFormat); }, s_target);
    page.compare(
        "date and time format", &CLocaleSupport::getDateTimeFormat, "dateTimeFormat()",
        [=] { return locale.dateTimeFormat(QLocale::ShortFormat); }, s_target);
}

// what does not follow the locale is the "C" locale's work
void comparePictures(MicroBenchmark &page)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);

    struct Picture
    {
        const char *format;
        char notation;
        int decimals;
    };
    constexpr Picture pictures[] = {
        {"0", 'f', 0}, //
        {"00", 'f', 0}, //
        {"0.00", 'f', 2}, //
        {"00.00", 'f', 2}, //
        {"00.000", 'f', 3}, //
        {"", 'f', 6}, //
        {"#.#", 'g', 6}, // any other
    };
    const QString text = QStringLiteral("1234.567");
    for (const Picture &picture : pictures) {
        const QString format = QLatin1String(picture.format);
        const auto peer = [=] {
            return locale.toString(s_number, picture.notation, picture.decimals);
        };
        page.compare(
            std::string("picture \"") + picture.format + '"',
            [=] { return DoubleFormater::toString(s_number, format); }, s_numberPeer, peer,
            s_target);
        page.compare(
            std::string("picture \"") + picture.format + "\" of a text",
            [=] { return DoubleFormater::toString(text, format); }, "toDouble(text), toString()",
            [=] {
                return locale.toString(locale.toDouble(text), picture.notation, picture.decimals);
            },
            s_target);
    }
    page.compare(
        "size", [] { return SizeFormater::toString(1610612736); }, s_numberPeer,
        [=] { return locale.toString(1.5, 'f', 1); }, s_target);
}

void limitConversions(MicroBenchmark &page)
{
    const struct
    {
        const char *from;
        const char *to;
    } conversions[] = {{"m", "ft"}, {"ft", "m"}, {"inch", "cm"}, {"cm", "mm"}, {"m", "m"}};
    for (const auto &conversion : conversions) {
        const QString from = QLatin1String(conversion.from);
        const QString to = QLatin1String(conversion.to);
        page.limit(
            std::string("length, ") + conversion.from + " to " + conversion.to,
            [=] { return LengthUnitsConverter::convert(from, to, s_number); }, s_convertTarget);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    GlobalLocaleData::instance(); // from now on the project's locale counts everywhere
    CProjectLocaleData::instance()->setLocale(QStringLiteral("D"), QStringLiteral("DEU"));
    const QLocale locale; // the same, without group separators

    MicroBenchmark page("Formatting and parsing beside the bare QLocale");
    compareDistances(page, locale);
    compareVariants(page, locale);
    compareFormats(page, locale);
    comparePictures(page);
    limitConversions(page);
    return page.run(argc, argv);
}
