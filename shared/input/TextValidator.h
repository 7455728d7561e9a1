#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <QVector>

#include <memory>

namespace Tavro::Shared {

class Validator;

/**
 * The rules of one text field, and what they say together.
 *
 * QML adds rules by type, with their options by name, and shows the hint; a host's glue asks
 * validate() at each change of the text. Rules are only ever added, and live as long as this
 * object. GUI thread only.
 *
 * With the rules int (bottom 1, top 9) and not empty: "5" passes; "" does not; "10" does not.
 */
class OVO_SHARED_EXPORT TextValidator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString hint READ hint NOTIFY hintChanged)
    Q_PROPERTY(bool hasHint READ hasHint NOTIFY hasHintChanged)

public:
    /** Which rule a text field gets; any other number gets a DefaultValidator. */
    enum ValidatorType : int {
        ValidatorDouble = 0, /**< DoubleValidator: "bottom", "top", "step" */
        ValidatorInt = 1, /**< IntValidator: "bottom", "top", "step" */
        ValidatorRegExp = 2, /**< RegExpValidator of a pattern: "pattern" */
        ValidatorNumericalMask = 3, /**< RegExpValidator of a mask of digits: "pattern" */
        ValidatorDateTimeMask = 4, /**< DateTimeValidator: "format" */
        ValidatorLength = 5, /**< StringLengthValidator: "bottom", "top" */
        ValidatorNotEmpty = 6, /**< NotEmptyValidator, without options */
    };
    Q_ENUM(ValidatorType)

    explicit TextValidator(QObject *parent = nullptr);
    ~TextValidator() override;

    /**
     * The hints of all rules, in the order of the rules, each as it was when its rule was added;
     * lines parted by line feeds, none at the end. Empty when no rule has anything to say.
     */
    QString hint() const;
    /** True once there is a rule, even if hint() is empty all the same. */
    bool hasHint() const;
    /** The types of the rules in the order in which they were added. */
    QVector<ValidatorType> validatorTypes() const;

    /**
     * Adds a rule. @p options are properties of the rule by name (see ValidatorType), in values
     * that QVariant can convert to theirs; unknown names have no effect.
     */
    // The enumeration by its bare name: calls from QML find it by that.
    Q_INVOKABLE void addValidator(ValidatorType type, // clazy:exclude=fully-qualified-moc-types
                                  const QVariantMap &options = QVariantMap());

    /**
     * Whether @p input passes every rule; without rules every text does. While a text is being
     * typed, let what may still become right pass; reject it (@p rejectIntermediate) when the
     * user is done. Leaves @p input as it is: each rule gets a copy of its own.
     */
    bool validate(QString &input, bool rejectIntermediate) const;

    /** A new rule without a parent, which belongs to the caller. */
    static Validator *createNewValidator(ValidatorType type);
    /** Sets the properties of @p validator, which must not be null, that @p options names. */
    static void setOptionsForValidator(Validator *validator, const QVariantMap &options);
    /** Composes hint() anew from the hints taken so far, and emits both signals. */
    void updateHint();

Q_SIGNALS:
    /** A rule was added, whether or not hint answers something new. */
    void hintChanged();
    /** A rule was added, whether or not it is the first. */
    void hasHintChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
