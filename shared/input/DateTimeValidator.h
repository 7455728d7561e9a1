#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * A date, a time, or both, in a format of QDateTime::fromString().
 *
 * With the format "dd.MM.yyyy": Acceptable "29.02.2024"; Invalid "", "29.02.2023", "29.2.2024".
 * Intermediate: none, so an unfinished date is refused while it is typed. Every refusal is logged.
 */
class OVO_SHARED_EXPORT DateTimeValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(QString format READ format WRITE setFormat NOTIFY formatChanged)

public:
    /** A rule without a parent; belongs to the caller. */
    DateTimeValidator();
    ~DateTimeValidator() override;

    /** The format; empty at first, which only the empty text matches. */
    QString format() const;
    /** Any text; one that QDateTime cannot read by refuses every input. */
    void setFormat(const QString &format);

    /** Acceptable or Invalid. Leaves @p input as it is. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** One line with the format, also when that is empty. */
    void updateHint() override;

Q_SIGNALS:
    /** Declared for the property system; nothing emits it. */
    void formatChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
