#pragma once

#include "shared/input/TextValidator.h"

#include <QPointer>
#include <QValidator>

namespace Tavro::FieldHost {

/**
 * Lets a text item of QML go by the rules of a TextValidator: `TextInput { validator: ... }`.
 *
 * A key that turns a passing text into a refused one does nothing. That suits rules for numbers.
 * For a date, a pattern or a minimum length every unfinished text is a wrong one: a date that is
 * complete could no more be corrected, and a mandatory text not be emptied. There @ref blocking
 * is false: such a text can be typed, and is not accepted.
 */
class FieldValidator : public QValidator
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Shared::TextValidator *rules READ rules WRITE setRules NOTIFY rulesChanged)
    Q_PROPERTY(bool blocking READ isBlocking WRITE setBlocking NOTIFY blockingChanged)

public:
    explicit FieldValidator(QObject *parent = nullptr);
    ~FieldValidator() override;

    /** Whose rules count; without them every text is acceptable. Belongs to somebody else. */
    Shared::TextValidator *rules() const { return m_rules; }
    /** The text is judged anew, and whenever a rule is added. */
    void setRules(Shared::TextValidator *rules);
    /** Whether keys that make a text wrong do nothing; true at first. */
    bool isBlocking() const { return m_isBlocking; }
    /** The text is judged anew. */
    void setBlocking(bool blocking);

    /**
     * Acceptable when the rules accept @p input for good, Intermediate when they let it pass while
     * it is typed, else Invalid, or Intermediate when this validator is not blocking.
     */
    State validate(QString &input, int &pos) const override;

Q_SIGNALS:
    void rulesChanged();
    void blockingChanged();

private:
    QPointer<Shared::TextValidator> m_rules;
    bool m_isBlocking = true;
};

} // namespace Tavro::FieldHost
