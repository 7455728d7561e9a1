// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

struct QMetaObject;

namespace Test {

/**
 * The methods that the class itself adds to its meta-object, in order, as "signal void
 * bottomChanged(int bottom)". One with an argument left out reads as it is called.
 */
QStringList declaredMethods(const QMetaObject &meta);

/** Its properties, in order, as "int bottom read write notify bottomChanged(int)". */
QStringList declaredProperties(const QMetaObject &meta);

/** The keys of its enumeration @p name, in order, as "ValidatorInt 1". */
QStringList declaredKeys(const QMetaObject &meta, const char *name);

} // namespace Test
