#include "app/window/DataPanel.h"

#include "app/window/DockTableView.h"

#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace veldraw::app {

DataPanel::DataPanel(kernel::Session& session, QWidget* parent)
    : QWidget(parent)
    , m_frames(session)
    , m_zones(session)
    , m_variables(session)
    , m_frameView(new DockTableView(m_frames, QStringLiteral("frameView"), QStringLiteral("Frames")))
    , m_zoneView(new DockTableView(m_zones, QStringLiteral("zoneView"), QStringLiteral("Zones")))
    , m_variableView(new DockTableView(m_variables, QStringLiteral("variableView"), QStringLiteral("Variables")))
    , m_picks(session, m_zones, *m_zoneView)
    , m_splitter(new QSplitter(Qt::Vertical))
    , m_follower(session, [this] { refresh(); })
{
    m_splitter->setObjectName(QStringLiteral("dataSplitter"));
    m_splitter->setChildrenCollapsible(false);
    addSection(*m_splitter, QStringLiteral("Frames"), *m_frameView, m_frameTitle);
    addSection(*m_splitter, QStringLiteral("Zones"), *m_zoneView, m_zoneTitle);
    addSection(*m_splitter, QStringLiteral("Variables"), *m_variableView, m_variableTitle);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setStretchFactor(2, 2);
    m_frameView->setPreferredRows(3);
    m_zoneView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_variableView->setPreferredRows(10);
    // In proportion, however high the window is; what it grows by goes to zones and variables.
    m_splitter->setSizes(
        {m_frameView->sizeHint().height(), m_zoneView->sizeHint().height(), m_variableView->sizeHint().height()});
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_splitter);

    connect(m_frameView, &QAbstractItemView::doubleClicked, this, &DataPanel::activateFrame);
    connect(m_frameView, &QAbstractItemView::activated, this, &DataPanel::activateFrame);
    for (SnapshotTableModel* model :
         {static_cast<SnapshotTableModel*>(&m_frames), static_cast<SnapshotTableModel*>(&m_zones),
          static_cast<SnapshotTableModel*>(&m_variables)})
        connect(model, &SnapshotTableModel::editRefused, this, &DataPanel::editRefused);
    updateTitles();
}

// The models are members and go before the child views do.
DataPanel::~DataPanel()
{
    for (DockTableView* view : {m_frameView, m_zoneView, m_variableView})
        delete view;
}

void DataPanel::addSection(QSplitter& splitter, QString const& title, DockTableView& view, QLabel*& label)
{
    auto* const section = new QWidget;
    auto* const layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 2);
    layout->setSpacing(2);
    label = new QLabel(title);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setBuddy(&view);
    layout->addWidget(label);
    layout->addWidget(&view);
    splitter.addWidget(section);
}

QByteArray DataPanel::saveSizes() const
{
    return m_splitter->saveState();
}

void DataPanel::restoreSizes(QByteArray const& state)
{
    m_splitter->restoreState(state);
}

void DataPanel::activateFrame(QModelIndex const& index)
{
    if (!m_frames.activate(index.row()))
        Q_EMIT editRefused();
}

void DataPanel::refresh()
{
    m_frames.refresh();
    m_variables.refresh();
    m_picks.refresh();
    updateTitles();
}

void DataPanel::updateTitles()
{
    auto const title = [](QString const& what, SnapshotTableModel const& model) {
        return model.rowCount() == 0 ? what : QStringLiteral("%1 (%2)").arg(what).arg(model.rowCount());
    };
    m_frameTitle->setText(title(QStringLiteral("Frames"), m_frames));
    m_zoneTitle->setText(title(QStringLiteral("Zones"), m_zones));
    m_variableTitle->setText(title(QStringLiteral("Variables"), m_variables));
}

} // namespace veldraw::app
