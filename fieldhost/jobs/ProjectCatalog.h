// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/base/DistanceUnit.h"

#include <QString>

namespace Tavro::FieldHost {

struct CatalogError;

/** Why a catalog was not taken, as a sentence. */
QString sentenceOf(const CatalogError &error);

/** Whether the unit of a catalog is one of distance, which the locale of a project follows. */
bool isDistanceUnit(const QString &unit);
/** The unit as catalogs write it. */
QString unitText(Base::DistanceUnit unit);

} // namespace Tavro::FieldHost
