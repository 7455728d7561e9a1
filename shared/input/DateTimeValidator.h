// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts a date, a time, or both, in a format of QDateTime::fromString().
 *
 * With the format "dd.MM.yyyy": Acceptable "29.02.2024"; Invalid "", "29.02.2023", "29.2.2024".
 * It never returns Intermediate, so an unfinished date is Invalid while it is typed. Every Invalid
 * text is logged at level Debug under "DateTimeValidator".
 */
class OVO_SHARED_EXPORT DateTimeValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(QString format READ format WRITE setFormat NOTIFY formatChanged)

public:
    /** Creates a rule without a parent. The caller owns it. */
    DateTimeValidator();
    ~DateTimeValidator() override;

    /** The format, in the notation of QDateTime::fromString(). */
    QString format() const;
    /**
     * Sets the format. Default: empty, which only the empty text matches. A format that
     * QDateTime::fromString() cannot use makes every text Invalid. Does not emit formatChanged().
     */
    void setFormat(const QString &format);

    /** Returns Acceptable or Invalid. Does not change @p input. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Sets a hint of one line, which contains the format, even an empty one. */
    void updateHint() override;

Q_SIGNALS:
    /** Never emitted: declared because the property names it. */
    void formatChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
