// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

/** Result of loading an observation. The host defines it; the library only passes it on. */
class LoadObservationDataResult;

/** Result of removing an observation. The host defines it; the library only passes it on. */
class RemoveObservationDataResult;
