#include "app/window/VariableRange.h"

#include "platform/vdsdkcommon/ShortestText.h"

#include <string>

namespace veldraw::app {

using State = kernel::ValueRange::State;

namespace {

// The shortest text that reads back as the same float: with nine digits 0.1 would become 0.100000001.
QString reportedNumber(double value, FieldDataType_e type)
{
    if (type != FieldDataType_Float)
        return QString::number(value, 'g', 9);
    std::string text;
    sdk::appendShortest(text, value, type);
    return QString::fromStdString(text);
}

// As people write it.
double withoutSignOfZero(double value)
{
    return value == 0.0 ? 0.0 : value;
}

} // namespace

VariableRange::VariableRange(kernel::DataSet const& dataSet, int variable)
{
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        kernel::Field const* const field = dataSet.field(zone, variable);
        if (field && !field->isPassive())
            add(*field, dataSet.zone(zone)->range(variable));
    }
    if (m_limits.isValid())
        m_limits.state = m_gap == Gap::None ? State::Exact : State::Estimated;
}

void VariableRange::add(kernel::Field const& field, kernel::ValueRange const& range)
{
    if (range.isValid()) {
        bool const isFirst = !m_limits.isValid();
        if (isFirst || range.min < m_limits.min) {
            m_limits.min = withoutSignOfZero(range.min);
            m_minType = field.type();
        }
        if (isFirst || range.max > m_limits.max) {
            m_limits.max = withoutSignOfZero(range.max);
            m_maxType = field.type();
        }
        m_limits.state = range.state;
    }
    if (range.state == State::Exact || (field.isLoaded() && !field.group()->isMapped()))
        return; // where there is no range then, there is no finite value
    m_gap = std::max(m_gap, field.isLoaded() ? Gap::Mapped : Gap::NotLoaded);
}

QString VariableRange::missingText() const
{
    switch (m_gap) {
    case Gap::NotLoaded:
        return QStringLiteral("not loaded");
    case Gap::Mapped:
        return QStringLiteral("not known");
    case Gap::None:
        break;
    }
    return QStringLiteral("no values");
}

QString VariableRange::text() const
{
    if (!m_limits.isValid())
        return missingText();
    QString const sign = m_gap == Gap::None ? QString() : QString::fromUtf8("≈ ");
    return sign + QString::fromUtf8("%1 … %2").arg(m_limits.min, 0, 'g', 5).arg(m_limits.max, 0, 'g', 5);
}

QString VariableRange::reportText() const
{
    if (!m_limits.isValid())
        return missingText();
    QString const word = m_gap == Gap::None ? QString() : QStringLiteral("about ");
    return word + QStringLiteral("%1 to %2")
                      .arg(reportedNumber(m_limits.min, m_minType), reportedNumber(m_limits.max, m_maxType));
}

QString VariableRange::explanation() const
{
    QString const subject = m_limits.isValid() ? QStringLiteral("The range is estimated, since values are")
                                               : QStringLiteral("The values are");
    switch (m_gap) {
    case Gap::NotLoaded:
        return subject + QStringLiteral(" not loaded. Data > Load Variable... loads them.");
    case Gap::Mapped:
        return subject + QStringLiteral(" mapped from a file, and too many to be looked through unasked.");
    case Gap::None:
        break;
    }
    return {};
}

} // namespace veldraw::app
