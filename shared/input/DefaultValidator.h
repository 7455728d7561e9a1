#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * The rule that stands in for a type that nobody knows: it has no hint and accepts every text.
 *
 * Acceptable: "", "abc". Intermediate and Invalid: none.
 */
class OVO_SHARED_EXPORT DefaultValidator : public Validator
{
    Q_OBJECT

public:
    /** A rule without a parent; belongs to the caller. */
    DefaultValidator();
    ~DefaultValidator() override;

    /** Always Acceptable. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** There is nothing to say. */
    void updateHint() override;

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
