// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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
 * The rules of one text field: their combined verdict and their combined hint.
 *
 * QML adds rules by type, with their options by name, and shows the hint. validate() is for C++:
 * the host calls it at each change of the text. Rules cannot be removed. The object owns them and
 * deletes them in its destructor. GUI thread only. No function blocks or throws.
 *
 * With the rules ValidatorInt (bottom 1, top 9) and ValidatorNotEmpty: "5" passes; "" and "10" do
 * not.
 */
class OVO_SHARED_EXPORT TextValidator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString hint READ hint NOTIFY hintChanged)
    Q_PROPERTY(bool hasHint READ hasHint NOTIFY hasHintChanged)

public:
    /** Type of a rule, with its options. Any other number creates a DefaultValidator. */
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
     * The hints of all rules in the order in which the rules were added. Each hint is the one that
     * its rule had when it was added. A line feed separates two lines; there is none at the end.
     * Empty when no rule has a hint.
     */
    QString hint() const;
    /** True when at least one rule was added, even if hint() is empty. */
    bool hasHint() const;
    /** The types of the rules in the order in which they were added. */
    QVector<ValidatorType> validatorTypes() const;

    /**
     * Adds a rule and emits hintChanged() and hasHintChanged(). @p options holds properties of the
     * rule by name (see ValidatorType). QVariant converts the values to the types of the
     * properties. An unknown name or a value that cannot be converted has no effect.
     */
    // The enumeration by its bare name: calls from QML find it by that.
    Q_INVOKABLE void addValidator(ValidatorType type, // clazy:exclude=fully-qualified-moc-types
                                  const QVariantMap &options = QVariantMap());

    /**
     * Returns true when @p input passes every rule, and when there are no rules. An Intermediate
     * verdict passes while @p rejectIntermediate is false: pass false while the text is being
     * typed, and true when the user has finished. Does not change @p input: each rule judges a
     * copy of its own.
     */
    bool validate(QString &input, bool rejectIntermediate) const;

    /** Creates a rule without a parent. The caller owns it. Never null. */
    static Validator *createNewValidator(ValidatorType type);
    /** Sets the properties of @p validator that @p options names. @p validator must not be null. */
    static void setOptionsForValidator(Validator *validator, const QVariantMap &options);
    /**
     * Composes hint() from the hints that were read when the rules were added, and emits
     * hintChanged() and hasHintChanged(). It does not read the rules again.
     */
    void updateHint();

Q_SIGNALS:
    /** Emitted when a rule was added, even if hint is the same. */
    void hintChanged();
    /** Emitted after hintChanged(), for each rule that was added. */
    void hasHintChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
