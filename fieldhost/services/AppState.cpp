// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "host/AppState.h"

#include "fieldhost/services/FieldApplication.h"

namespace Tavro {

AppState *AppState::instance()
{
    auto *application = FieldHost::FieldApplication::instance();
    return application ? &application->state() : nullptr;
}

} // namespace Tavro
