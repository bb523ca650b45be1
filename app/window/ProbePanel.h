#pragma once

#include "app/plot/ProbedPlace.h"
#include "app/window/CentralView.h"
#include "app/window/ProbeReport.h"
#include "app/window/SessionFollower.h"

#include <QWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTreeWidget;

namespace veldraw::app {

/// What the "Values" dock shows: zone, position, index or cell and all values at the place that was probed last, and the way to it from
/// the place before, along which it makes a line plot. It follows the data.
class ProbePanel : public QWidget
{
    Q_OBJECT

public:
    /// @param view has clicks without a key probe, and marks the places
    ProbePanel(kernel::Session& session, CentralView const& view, QWidget* parent = nullptr);
    ~ProbePanel() override;

    /// Shows a place; the one that was shown is that before.
    void add(ProbedPlace const& place);

    /// Puts the keyboard focus on the list.
    void takeFocus();

Q_SIGNALS:
    /// The session did not do what was asked for.
    void editRefused();

private:
    void makeFields();
    void layOut();
    void refresh();
    void showLines(ProbeReport::Lines const& lines);
    kernel::NumberSet missingVariables() const;
    void load();
    void copy() const;
    void forget();
    bool canProbeLine() const;
    void probeLine();
    bool showLine();

    kernel::Session& m_session;
    std::function<void(bool)> m_probeByClick;
    std::function<void(std::vector<ProbedPlace>)> m_markProbes;
    QLabel* m_notice;
    QCheckBox* m_byClick;
    QTreeWidget* m_list;
    QPushButton* m_load;
    QPushButton* m_copy;
    QPushButton* m_forget;
    QSpinBox* m_points;
    QPushButton* m_line;
    std::optional<ProbedPlace> m_before;
    std::optional<ProbedPlace> m_last;
    ProbeReport::Lines m_lines; // that are shown
    SessionFollower m_follower;
};

} // namespace veldraw::app
