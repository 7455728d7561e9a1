// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts a text of at least one character. A blank is a character.
 *
 * Acceptable: "a", " ". Invalid: "" (not logged). Intermediate: none.
 */
class OVO_SHARED_EXPORT NotEmptyValidator : public Validator
{
    Q_OBJECT

public:
    /** Creates a rule without a parent. The caller owns it. */
    NotEmptyValidator();
    ~NotEmptyValidator() override;

    /** Returns Invalid for the empty text, else Acceptable. Does not change @p input. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Sets a hint of one line, which is always the same. */
    void updateHint() override;

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
