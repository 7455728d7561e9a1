// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/Vector3D.h"

namespace Tavro::View3d {

template class Vector3D<double>;

} // namespace Tavro::View3d
