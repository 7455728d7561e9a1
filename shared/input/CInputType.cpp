#include "shared/input/CInputType.h"

#include <utility>

namespace Tavro::Shared {

CInputType::CInputType(QObject *parent)
    : QObject(parent)
{
}

CInputType::~CInputType() = default;

QString CInputType::valuesToHide() const
{
    return m_valuesToHide;
}

void CInputType::setValuesToHide(QString values)
{
    m_valuesToHide = std::move(values);
}

} // namespace Tavro::Shared
