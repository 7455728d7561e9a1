// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QDoubleValidator>

#include <memory>

namespace Tavro::Shared::Validation {

/**
 * A QDoubleValidator that accepts both "." and "," as decimal point.
 *
 * Two locales take part. QValidator::locale() reads the number; it is the default locale at the
 * time of construction. The decimal points in the text become that of
 * CLocaleSupport::getCurrentLocale(). Construct the validator, or call setLocale(), after
 * GlobalLocaleData has set the default locale.
 *
 * GUI thread only. No function blocks. Nothing is logged.
 *
 * With both locales German, range 0 to 10 and two decimals: Acceptable "1,5", "1.5" (which becomes
 * "1,5"); Intermediate "", "11"; Invalid "-1", "1,555", "a".
 */
class OVO_SHARED_EXPORT DoubleValidator : public QDoubleValidator
{
public:
    explicit DoubleValidator(QObject *parent = nullptr);
    /** Passes all arguments to the constructor of QDoubleValidator. */
    DoubleValidator(double bottom, double top, int decimals, QObject *parent = nullptr);
    ~DoubleValidator() override;

    /**
     * Calls fixup(), which is virtual, on @p input and returns the verdict of QDoubleValidator on
     * the result.
     */
    QValidator::State validate(QString &input, int &pos) const override;
    /**
     * Replaces each "." and each "," in @p input by the decimal point of
     * CLocaleSupport::getCurrentLocale().
     */
    void fixup(QString &input) const override;

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared::Validation
