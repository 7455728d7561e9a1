#include "shared/input/Validator.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN Validator::Private
{
};

Validator::Validator() = default;

Validator::~Validator() = default;

QString Validator::hint()
{
    // The flag stays set: a subclass whose setters forget it still gets its hint made anew.
    if (m_hintOutdated) {
        updateHint();
    }
    return m_hint;
}

} // namespace Tavro::Shared
