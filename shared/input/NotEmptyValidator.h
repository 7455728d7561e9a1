#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * A text of at least one character; a blank is one.
 *
 * Acceptable: "a", " ". Invalid: "" (not logged). Intermediate: none.
 */
class OVO_SHARED_EXPORT NotEmptyValidator : public Validator
{
    Q_OBJECT

public:
    /** A rule without a parent; belongs to the caller. */
    NotEmptyValidator();
    ~NotEmptyValidator() override;

    /** Invalid for the empty text, else Acceptable. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** One line, always the same. */
    void updateHint() override;

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
