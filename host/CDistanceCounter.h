#pragma once

#include <QObject>

namespace Tavro::AppLogic {

/** Distance travelled by the crawler in the section under inspection. */
class Q_DECL_EXPORT CDistanceCounter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Current distance in metres. */
    virtual double distanceValue() const = 0;

Q_SIGNALS:
    /** The crawler has moved; @p distance in metres. */
    void distanceValueChanged(double distance);
};

} // namespace Tavro::AppLogic
