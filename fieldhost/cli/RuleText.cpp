// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/RuleText.h"

#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/NearestWord.h"
#include "fieldhost/jobs/Text.h"
#include "shared/input/Validator.h"

#include <QMetaProperty>
#include <QRegExp>

#include <memory>

namespace Tavro::FieldHost {

using Shared::TextValidator;
using Shared::Validator;

namespace {

struct TypeName
{
    const char *name;
    TextValidator::ValidatorType type;
};

constexpr TypeName s_types[] = {
    {"double", TextValidator::ValidatorDouble},
    {"int", TextValidator::ValidatorInt},
    {"regexp", TextValidator::ValidatorRegExp},
    {"mask", TextValidator::ValidatorNumericalMask},
    {"datetime", TextValidator::ValidatorDateTimeMask},
    {"length", TextValidator::ValidatorLength},
    {"notempty", TextValidator::ValidatorNotEmpty},
};

const TypeName *findType(const QString &name)
{
    for (const TypeName &type : s_types) {
        if (name == QLatin1String(type.name)) {
            return &type;
        }
    }
    return nullptr;
}

QString unknownType(const QString &name)
{
    QStringList names;
    for (const TypeName &type : s_types) {
        names += QLatin1String(type.name);
    }
    return CommandText::tr("There is no rule %1.%2").arg(quoted(name), suggestion(name, names));
}

// what the rule itself calls its properties
QStringList keysOf(const QMetaObject &rule)
{
    QStringList keys;
    for (int i = rule.propertyOffset(); i < rule.propertyCount(); ++i) {
        keys += QLatin1String(rule.property(i).name());
    }
    return keys;
}

QString unknownKey(const QString &key, const QString &type, const QStringList &keys)
{
    if (keys.isEmpty()) {
        return CommandText::tr("The rule %1 has no options.").arg(type);
    }
    return CommandText::tr("The rule %1 has no option %2.%3")
        .arg(type, quoted(key), suggestion(key, keys));
}

// cuts the next KEY=VALUE off the front of the text
QString takeOption(QString &text)
{
    const bool reachesToTheEnd =
        text.startsWith(QLatin1String("pattern=")) || text.startsWith(QLatin1String("format="));
    const int comma = reachesToTheEnd ? -1 : text.indexOf(QLatin1Char(','));
    QString option = text.left(comma);
    text = comma < 0 ? QString() : text.mid(comma + 1);
    return option;
}

// Sets the option on the rule; returns why that is not possible, or nothing. The rule itself would
// take whatever it gets without a word.
QString setOption(RuleText &rule, Validator &validator, const QString &type, const QString &option)
{
    const int equals = option.indexOf(QLatin1Char('='));
    const QString key = option.left(equals);
    const QStringList keys = keysOf(*validator.metaObject());
    if (!keys.contains(key)) {
        return unknownKey(key, type, keys);
    }
    if (equals < 0) {
        return CommandText::tr("The option %1 lacks its value: %1=...").arg(key);
    }
    const QString value = option.mid(equals + 1);
    if (!validator.setProperty(key.toLatin1().constData(), value)) {
        return CommandText::tr("%1 is not a value for %2 of the rule %3.")
            .arg(quoted(value), key, type);
    }
    rule.options.insert(key, value);
    return {};
}

QString whyPatternIsNone(const Validator &validator)
{
    const QVariant pattern = validator.property("pattern");
    const QRegExp expression(pattern.toString());
    if (!pattern.isValid() || expression.isValid()) {
        return {};
    }
    return CommandText::tr("The pattern %1 cannot be compiled: %2.")
        .arg(quoted(expression.pattern()), expression.errorString());
}

} // namespace

RuleText parseRule(const QString &text)
{
    RuleText rule;
    rule.text = text;
    const int colon = text.indexOf(QLatin1Char(':'));
    const QString name = text.left(colon);
    const TypeName *type = findType(name);
    if (!type) {
        rule.error = unknownType(name);
        return rule;
    }
    rule.type = type->type;

    const std::unique_ptr<Validator> validator(TextValidator::createNewValidator(type->type));
    QString options = colon < 0 ? QString() : text.mid(colon + 1);
    while (!options.isEmpty() && rule.error.isEmpty()) {
        rule.error = setOption(rule, *validator, name, takeOption(options));
    }
    if (rule.error.isEmpty()) {
        rule.error = whyPatternIsNone(*validator);
    }
    return rule;
}

} // namespace Tavro::FieldHost
