#include "shared/system/Wait.h"

namespace Tavro::Shared {

Wait::Wait(QObject *parent)
    : QObject(parent)
{
}

QString Wait::text() const
{
    return m_text;
}

void Wait::setText(const QString &text)
{
    m_text = text;
}

} // namespace Tavro::Shared
