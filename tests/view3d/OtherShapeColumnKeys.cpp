// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/view3d/OtherShapeColumnKeys.h"

#include "shared/view3d/ShapeColumnKeys.h"

const QString *otherShapeViewColumnM()
{
    return &Tavro::View3d::shapeViewColumnM;
}
