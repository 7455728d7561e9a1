// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/input/TextValidator.h"

#include <QPointer>
#include <QValidator>
#include <QtQml/qqml.h>

namespace Tavro::Qml {

/**
 * Applies the rules of a TextValidator to a text item: `TextField { validator: FieldValidator {
 * rules: … } }`.
 *
 * A key that turns a passing text into a refused one does nothing. That suits rules for numbers.
 * For a date, a pattern or a minimum length every unfinished text is a wrong one: a complete date
 * could no longer be corrected, and a mandatory text not be emptied. There `blocking` is false:
 * such a text can be typed, and is not accepted.
 *
 * GUI thread only. No function blocks.
 */
class FieldValidator : public QValidator
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Shared::TextValidator *rules READ rules WRITE setRules NOTIFY rulesChanged)
    Q_PROPERTY(bool blocking READ isBlocking WRITE setBlocking NOTIFY blockingChanged)
    QML_NAMED_ELEMENT(FieldValidator)

public:
    explicit FieldValidator(QObject *parent = nullptr);
    ~FieldValidator() override;

    /** The rules, which belong to somebody else. Without them every text is acceptable. */
    Shared::TextValidator *rules() const { return m_rules; }
    /** Sets the rules. The text is judged anew, and whenever a rule is added. */
    void setRules(Shared::TextValidator *rules);
    /** Whether keys that make a text wrong do nothing. Default: true. */
    bool isBlocking() const { return m_isBlocking; }
    /** Sets whether such keys do nothing. The text is judged anew. */
    void setBlocking(bool blocking);

    /**
     * Acceptable when the rules accept @p input for good, Intermediate when they let it pass while
     * it is typed, else Invalid, or Intermediate when this validator is not blocking.
     */
    State validate(QString &input, int &pos) const override;

Q_SIGNALS:
    /** Emitted when rules has changed. */
    void rulesChanged();
    /** Emitted when blocking has changed. */
    void blockingChanged();

private:
    QPointer<Shared::TextValidator> m_rules;
    bool m_isBlocking = true;
};

} // namespace Tavro::Qml
