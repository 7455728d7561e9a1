// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts a text whose length lies within inclusive bounds. The length is counted in UTF-16 code
 * units: an emoji counts as two.
 *
 * With bottom 2 and top 3: Acceptable "ab", "abc"; Invalid "", "a", "abcd". It never returns
 * Intermediate, so a text that is still too short is Invalid while it is typed. Every Invalid text
 * is logged at level Debug under "StringLengthValidator".
 */
class OVO_SHARED_EXPORT StringLengthValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(int bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(int top READ top WRITE setTop NOTIFY topChanged)

public:
    /** Creates a rule without a parent. The caller owns it. */
    StringLengthValidator();
    ~StringLengthValidator() override;

    /** Shortest accepted length in UTF-16 code units, inclusive. */
    int bottom() const;
    /**
     * Sets the lower bound, in UTF-16 code units. Default: 0. The next hint includes a bound that
     * was set. Does not emit bottomChanged().
     */
    void setBottom(int bottom);
    /** Longest accepted length in UTF-16 code units, inclusive. */
    int top() const;
    /**
     * Sets the upper bound, in UTF-16 code units. Default: 2147483647. The next hint includes a
     * bound that was set. Does not emit topChanged().
     */
    void setTop(int top);

    /** Returns Acceptable or Invalid. Does not change @p input. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Sets a hint of up to two lines: bottom if it was set, top if it was set. */
    void updateHint() override;

    /** Calls setBottom() and then setTop(). */
    virtual void setRange(int bottom, int top);

Q_SIGNALS:
    /** Never emitted: declared because the property names it. */
    void bottomChanged(int bottom);
    /** Never emitted: declared because the property names it. */
    void topChanged(int top);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
