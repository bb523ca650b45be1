#include "app/window/DataSetStatus.h"

#include "app/window/DataDescription.h"
#include "app/window/DataSetSize.h"

#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int fewestCharacters = 12;

QString plural(std::int64_t count, QString const& what)
{
    return countText(count) + QLatin1Char(' ') + what + (count == 1 ? QString() : QStringLiteral("s"));
}

// As long as a zone has its dimensions in its file, nobody knows the sums.
QStringList sizeTexts(kernel::DataSet const& dataSet)
{
    auto const& zones = dataSet.zones();
    if (std::any_of(zones.begin(), zones.end(), [](auto const& zone) { return zone->isDeferred(); }))
        return {QStringLiteral("size not loaded")};
    return {plural(pointCount(dataSet), QStringLiteral("point")), plural(cellCount(dataSet), QStringLiteral("cell"))};
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
    ValueBytes const bytes = valueBytes(*dataSet);
    QStringList parts{plural(dataSet->zoneCount(), QStringLiteral("zone"))};
    parts << sizeTexts(*dataSet) << memoryText(bytes.inMemory);
    if (bytes.mapped > 0)
        parts << QStringLiteral("%1 mapped").arg(memoryText(bytes.mapped));
    setText(parts.join(QString::fromUtf8("  ·  ")));
    QString const meaning =
        bytes.mapped > 0
            ? QStringLiteral("Data set of the active frame; memory of its values, and what is mapped from files")
            : QStringLiteral("Data set of the active frame; memory of its values");
    setToolTip(text() + QLatin1Char('\n') + meaning);
}

QSize DataSetStatus::minimumSizeHint() const
{
    return {fewestCharacters * fontMetrics().averageCharWidth(), QLabel::minimumSizeHint().height()};
}

void DataSetStatus::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignTrailing | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

} // namespace veldraw::app
