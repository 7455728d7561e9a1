// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// What a verdict on a text costs beside the toolkit's own.

#include "benchmarks/MicroBenchmark.h"
#include "shared/input/DoubleValidator.h"
#include "shared/input/IntValidator.h"
#include "shared/input/RegExpValidator.h"
#include "shared/input/TextValidator.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QDoubleValidator>
#include <QIntValidator>
#include <QRegExp>

using Tavro::Benchmarks::MicroBenchmark;
using Tavro::Shared::DoubleValidator;
using Tavro::Shared::GlobalLocaleData;
using Tavro::Shared::IntValidator;
using Tavro::Shared::RegExpValidator;
using Tavro::Shared::TextValidator;

namespace {

// what a text field has it do: the text is its own, the validator may rewrite it
template<typename Rule> auto verdict(const Rule &rule, const QString &text)
{
    return [&rule, text] {
        QString copy = text;
        int pos = 0;
        return rule.validate(copy, pos);
    };
}

auto match(const QRegExp &expression, const QString &text)
{
    return [&expression, text] { return expression.exactMatch(text); };
}

} // namespace

int main(int argc, char **argv)
{
    GlobalLocaleData::instance()->setDeviceLocale(QLocale(QLocale::German, QLocale::Germany));
    MicroBenchmark page("Rules of text fields");

    IntValidator wholeNumber;
    wholeNumber.setRange(0, 5000);
    const QIntValidator toolkitsWholeNumber(0, 5000);
    page.compare("IntValidator, acceptable", verdict(wholeNumber, QStringLiteral("1234")),
                 "QIntValidator", verdict(toolkitsWholeNumber, QStringLiteral("1234")), 1.0);
    page.compare("IntValidator, out of range", verdict(wholeNumber, QStringLiteral("98765")),
                 "QIntValidator", verdict(toolkitsWholeNumber, QStringLiteral("98765")), 1.0);
    page.compare("IntValidator, empty", verdict(wholeNumber, QString()), "QIntValidator",
                 verdict(toolkitsWholeNumber, QString()), 1.0);

    DoubleValidator number;
    number.setRange(0.0, 5000.0);
    const QDoubleValidator toolkitsNumber(0.0, 5000.0, 2);
    page.compare("DoubleValidator, acceptable", verdict(number, QStringLiteral("1234,5")),
                 "QDoubleValidator", verdict(toolkitsNumber, QStringLiteral("1234,5")), 1.5);
    page.compare("DoubleValidator, other separator", verdict(number, QStringLiteral("1234.5")),
                 "QDoubleValidator, its own", verdict(toolkitsNumber, QStringLiteral("1234,5")),
                 1.5);
    page.compare("DoubleValidator, out of range", verdict(number, QStringLiteral("98765,5")),
                 "QDoubleValidator", verdict(toolkitsNumber, QStringLiteral("98765,5")), 1.5);

    RegExpValidator pattern(false);
    pattern.setPattern(QStringLiteral("[A-Z]{2,3}-[0-9]{1,4}"));
    const QRegExp toolkitsPattern(pattern.pattern());
    page.compare("RegExpValidator, pattern", verdict(pattern, QStringLiteral("ABC-1234")),
                 "QRegExp", match(toolkitsPattern, QStringLiteral("ABC-1234")), 1.1);
    RegExpValidator mask(true);
    mask.setPattern(QStringLiteral("000.00"));
    const QRegExp toolkitsMask(mask.pattern());
    page.compare("RegExpValidator, mask", verdict(mask, QStringLiteral("123.45")), "QRegExp",
                 match(toolkitsMask, QStringLiteral("123.45")), 1.1);

    TextValidator field;
    field.addValidator(TextValidator::ValidatorInt,
                       {{QStringLiteral("bottom"), 0}, {QStringLiteral("top"), 5000}});
    field.addValidator(TextValidator::ValidatorLength, {{QStringLiteral("top"), 4}});
    QString text = QStringLiteral("1234");
    page.compare(
        "TextValidator of two rules", [&] { return field.validate(text, true); }, "QIntValidator",
        verdict(toolkitsWholeNumber, text), 1.5);
    return page.run(argc, argv);
}
