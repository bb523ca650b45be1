#include "app/window/DataSetStatus.h"

#include "app/window/DataTexts.h"

namespace veldraw::app {

namespace {

QString plural(std::int64_t count, QString const& what)
{
    return countText(count) + QLatin1Char(' ') + what + (count == 1 ? QString() : QStringLiteral("s"));
}

} // namespace

DataSetStatus::DataSetStatus(kernel::Session& session, QWidget* parent)
    : QLabel(parent)
    , m_session(session)
    , m_follower(session, [this] { refresh(); })
{
    setObjectName(QStringLiteral("dataSetStatus"));
    refresh();
}

void DataSetStatus::refresh()
{
    auto const dataSet = m_session.activeDataSet();
    if (!dataSet) {
        setText(QStringLiteral("No data"));
        setToolTip({});
        return;
    }
    setText(QString::fromUtf8("%1  ·  %2  ·  %3  ·  %4")
                .arg(plural(dataSet->zoneCount(), QStringLiteral("zone")),
                     plural(pointCount(*dataSet), QStringLiteral("point")),
                     plural(cellCount(*dataSet), QStringLiteral("cell")), memoryText(valueBytes(*dataSet))));
    setToolTip(QStringLiteral("Data set of the active frame; memory of its values"));
}

} // namespace veldraw::app
