// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/Validator.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN Validator::Private
{
};

Validator::Validator() = default;

Validator::~Validator() = default;

QString Validator::hint()
{
    // The flag stays set, so the hint is right also if a setter of a subclass forgets it.
    if (m_hintOutdated) {
        updateHint();
    }
    return m_hint;
}

} // namespace Tavro::Shared
