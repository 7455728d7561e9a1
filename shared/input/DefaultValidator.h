// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts every text and has no hint. TextValidator uses it for an unknown rule type.
 *
 * Acceptable: "", "abc". Intermediate and Invalid: none.
 */
class OVO_SHARED_EXPORT DefaultValidator : public Validator
{
    Q_OBJECT

public:
    /** Creates a rule without a parent. The caller owns it. */
    DefaultValidator();
    ~DefaultValidator() override;

    /** Returns Acceptable. Does not change @p input. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Sets an empty hint. */
    void updateHint() override;

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
