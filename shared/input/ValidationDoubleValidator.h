#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QDoubleValidator>

#include <memory>

namespace Tavro::Shared::Validation {

/**
 * QDoubleValidator that takes both "." and "," for the decimal point.
 *
 * It judges with the locale that it has as a QValidator, which is the default locale at the moment
 * of its construction; the separators become the decimal point of the current locale. Make it, or
 * set its locale, after GlobalLocaleData has chosen one.
 *
 * With both locales German, range 0 to 10 and two decimals: Acceptable "1,5", "1.5" (which becomes
 * "1,5"); Intermediate "", "11"; Invalid "-1", "1,555", "a".
 */
class OVO_SHARED_EXPORT DoubleValidator : public QDoubleValidator
{
public:
    explicit DoubleValidator(QObject *parent = nullptr);
    /** As QDoubleValidator's constructor of the same shape. */
    DoubleValidator(double bottom, double top, int decimals, QObject *parent = nullptr);
    ~DoubleValidator() override;

    /**
     * Rewrites @p input with fixup(), or with that of a subclass, and judges the result as
     * QDoubleValidator does.
     */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Each "." and each "," in @p input becomes the decimal point of the current locale. */
    void fixup(QString &input) const override;

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared::Validation
