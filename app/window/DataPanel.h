#pragma once

#include "app/window/FrameTableModel.h"
#include "app/window/PickSelection.h"
#include "app/window/SessionFollower.h"
#include "app/window/VariableTableModel.h"
#include "app/window/ZoneTableModel.h"

#include <QWidget>

class QLabel;
class QSplitter;

namespace veldraw::app {

class DockTableView;

/// What the "Data" dock shows: frames, and zones and variables of the active frame's data set, one below the other.
/// The selected zones are those that are picked in the plots. Double click or Return on a frame activates it; F2 renames; Space,
/// or a click on the box, enables and disables.
class DataPanel : public QWidget
{
    Q_OBJECT

public:
    explicit DataPanel(kernel::Session& session, QWidget* parent = nullptr);
    ~DataPanel() override;

    DockTableView& frameView() { return *m_frameView; }
    DockTableView& zoneView() { return *m_zoneView; }
    DockTableView& variableView() { return *m_variableView; }

    /// How high the user has made the lists, and the same again. A state that is none changes nothing.
    QByteArray saveSizes() const;
    void restoreSizes(QByteArray const& state);

Q_SIGNALS:
    /// The session did not do what the user asked for in a list.
    void editRefused();

private:
    void addSection(QSplitter& splitter, QString const& title, DockTableView& view, QLabel*& label);
    void activateFrame(QModelIndex const& index);
    void refresh();
    void updateTitles();

    FrameTableModel m_frames;
    ZoneTableModel m_zones;
    VariableTableModel m_variables;
    DockTableView* m_frameView;
    DockTableView* m_zoneView;
    DockTableView* m_variableView;
    PickSelection m_picks;
    QSplitter* m_splitter;
    QLabel* m_frameTitle = nullptr;
    QLabel* m_zoneTitle = nullptr;
    QLabel* m_variableTitle = nullptr;
    SessionFollower m_follower;
};

} // namespace veldraw::app
