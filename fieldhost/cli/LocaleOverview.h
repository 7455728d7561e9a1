// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CCatalogTemplate.h"

#include <QString>

namespace Tavro::FieldHost {

/** A table of values, and how they are shown by the library's locale of the moment. */
QString valueOverview();

/** A table of the columns of @p catalogTemplate with the units that the library shows for them. */
QString columnOverview(const Templates::CCatalogTemplate &catalogTemplate);

} // namespace Tavro::FieldHost
