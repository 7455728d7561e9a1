#pragma once

/** Result of loading an observation; the library only passes it on. */
class LoadObservationDataResult;

/** Result of removing an observation; the library only passes it on. */
class RemoveObservationDataResult;
