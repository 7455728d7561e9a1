// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/TextValidator.h"

#include "shared/input/DateTimeValidator.h"
#include "shared/input/DefaultValidator.h"
#include "shared/input/DoubleValidator.h"
#include "shared/input/IntValidator.h"
#include "shared/input/NotEmptyValidator.h"
#include "shared/input/RegExpValidator.h"
#include "shared/input/StringLengthValidator.h"

#include <QPointer>
#include <QSharedPointer>

namespace Tavro::Shared {

class Q_DECL_HIDDEN TextValidator::Private
{
public:
    QString hint;
    // these three in parallel
    QVector<QSharedPointer<Validator>> validators;
    QVector<ValidatorType> validatorTypes;
    QVector<QString> hints;
};

TextValidator::TextValidator(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

TextValidator::~TextValidator() = default;

QString TextValidator::hint() const
{
    return d->hint;
}

bool TextValidator::hasHint() const
{
    return !d->validators.isEmpty();
}

QVector<TextValidator::ValidatorType> TextValidator::validatorTypes() const
{
    return d->validatorTypes;
}

void TextValidator::addValidator(ValidatorType type, const QVariantMap &options)
{
    const QSharedPointer<Validator> validator(createNewValidator(type));
    d->validators.append(validator);
    d->validatorTypes.append(type);
    setOptionsForValidator(validator.data(), options);
    d->hints.append(validator->hint());
    updateHint();
}

bool TextValidator::validate(QString &input, bool rejectIntermediate) const
{
    int pos = -1;
    for (const QSharedPointer<Validator> &validator : qAsConst(d->validators)) {
        QString text = input;
        const QValidator::State verdict = validator->validate(text, pos);
        if (verdict == QValidator::Invalid
            || (verdict == QValidator::Intermediate && rejectIntermediate)) {
            return false;
        }
    }
    return true;
}

Validator *TextValidator::createNewValidator(ValidatorType type)
{
    switch (type) {
    case ValidatorDouble:
        return new DoubleValidator;
    case ValidatorInt:
        return new IntValidator;
    case ValidatorRegExp:
        return new RegExpValidator(false);
    case ValidatorNumericalMask:
        return new RegExpValidator(true);
    case ValidatorDateTimeMask:
        return new DateTimeValidator;
    case ValidatorLength:
        return new StringLengthValidator;
    case ValidatorNotEmpty:
        return new NotEmptyValidator;
    }
    return new DefaultValidator;
}

void TextValidator::setOptionsForValidator(Validator *validator, const QVariantMap &options)
{
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        // an unknown name becomes a dynamic property, which nobody reads
        validator->setProperty(option.key().toLocal8Bit().constData(), option.value());
    }
}

void TextValidator::updateHint()
{
    d->hint.clear();
    for (const QString &hint : qAsConst(d->hints)) {
        d->hint += hint;
    }
    d->hint.chop(1); // the last line feed
    const QPointer<TextValidator> self = this;
    Q_EMIT hintChanged();
    if (self) { // a slot may have deleted it
        Q_EMIT hasHintChanged();
    }
}

} // namespace Tavro::Shared
