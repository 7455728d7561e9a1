#include "shared/input/TextValidator.h"

#include "shared/input/DateTimeValidator.h"
#include "shared/input/DefaultValidator.h"
#include "shared/input/DoubleValidator.h"
#include "shared/input/IntValidator.h"
#include "shared/input/NotEmptyValidator.h"
#include "shared/input/RegExpValidator.h"
#include "shared/input/StringLengthValidator.h"

#include <QPointer>

namespace Tavro::Shared {

TextValidator::TextValidator(QObject *parent)
    : QObject(parent)
{
}

TextValidator::~TextValidator() = default;

QString TextValidator::hint() const
{
    return m_hint;
}

bool TextValidator::hasHint() const
{
    return !m_validators.isEmpty();
}

QVector<TextValidator::ValidatorType> TextValidator::validatorTypes() const
{
    return m_validatorTypes;
}

void TextValidator::addValidator(ValidatorType type, const QVariantMap &options)
{
    const QSharedPointer<Validator> validator(createNewValidator(type));
    m_validators.append(validator);
    m_validatorTypes.append(type);
    setOptionsForValidator(validator.data(), options);
    m_hints.append(validator->hint());
    updateHint();
}

bool TextValidator::validate(QString &input, bool rejectIntermediate) const
{
    int pos = -1;
    for (const QSharedPointer<Validator> &validator : m_validators) {
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
    m_hint.clear();
    for (const QString &hint : qAsConst(m_hints)) {
        m_hint += hint;
    }
    m_hint.chop(1); // the last line feed
    const QPointer<TextValidator> self = this;
    Q_EMIT hintChanged();
    if (self) { // a slot may have deleted it
        Q_EMIT hasHintChanged();
    }
}

} // namespace Tavro::Shared
