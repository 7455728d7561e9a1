#include "shared/input/StringLengthValidator.h"

#include "shared/input/detail/RefusedText.h"

namespace Tavro::Shared {

StringLengthValidator::StringLengthValidator() = default;

StringLengthValidator::~StringLengthValidator() = default;

int StringLengthValidator::bottom() const
{
    return m_bottom;
}

void StringLengthValidator::setBottom(int bottom)
{
    m_bottom = bottom;
    m_bottomSet = true;
    m_hintOutdated = true;
}

int StringLengthValidator::top() const
{
    return m_top;
}

void StringLengthValidator::setTop(int top)
{
    m_top = top;
    m_topSet = true;
    m_hintOutdated = true;
}

QValidator::State StringLengthValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (m_bottom <= input.size() && input.size() <= m_top) {
        return QValidator::Acceptable;
    }
    detail::logRefusedText(QStringLiteral("StringLengthValidator"), input);
    return QValidator::Invalid;
}

void StringLengthValidator::updateHint()
{
    m_hint.clear();
    if (m_bottomSet) {
        m_hint += QStringLiteral("Minimum length larger or equal %1\n").arg(m_bottom);
    }
    if (m_topSet) {
        m_hint += QStringLiteral("Maximum length smaller or equal %1\n").arg(m_top);
    }
}

void StringLengthValidator::setRange(int bottom, int top)
{
    setBottom(bottom);
    setTop(top);
}

} // namespace Tavro::Shared
