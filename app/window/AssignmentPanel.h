#pragma once

#include "app/window/NumberChooser.h"
#include "app/window/SessionFollower.h"

#include <QWidget>

#include <map>

class QGroupBox;
class QLabel;
class QScrollArea;

namespace veldraw::app {

class BlankingBox;
class ContourBox;
class LineAxesBox;

/// What the "Plot" dock shows: which variables stand on the axes, make up the vector and colour the contours of a field plot, its colours
/// and what is left out of it; and zone, variables and axes of a line plot. It shows the part that the active frame's plot type uses.
class AssignmentPanel : public QWidget
{
    Q_OBJECT

public:
    explicit AssignmentPanel(kernel::Session& session, QWidget* parent = nullptr);

    /// Puts the keyboard focus on the first control that can be used.
    void takeFocus();

    /// What stands where no variable is assigned.
    static QString noneText() { return QStringLiteral("(none)"); }

    /// Numbers and names of the enabled zones of the active data set.
    static NumberChooser::Choices zoneChoices(kernel::Session const& session);

    /// Numbers and names of the enabled variables of the active data set; @p firstText, if not empty, stands first with 0.
    static NumberChooser::Choices variableChoices(kernel::Session const& session, QString const& firstText);

Q_SIGNALS:
    /// The session did not accept a choice.
    void editRefused();

private:
    QGroupBox* makeFieldGroup();
    QGroupBox* makeLineGroup();
    NumberChooser* makeAssignment(char assignment, QString const& text);
    void refresh();
    void refreshField(kernel::Frame const& frame);
    void refreshLine(kernel::Frame const& frame);
    void assign(char assignment, int variable);
    void assignLine();
    void followLineAxes();
    void perform(kernel::Operation&& operation);
    void fitLineAxes();
    void chooseColours(kernel::ContourColours const& colours);
    void chooseBlanking(kernel::ValueBlanking const& blanking);

    kernel::Session& m_session;
    QLabel* m_notice;
    std::map<char, NumberChooser*> m_assignments;
    std::map<char, QLabel*> m_labels;
    NumberChooser* m_lineZone = nullptr;
    NumberChooser* m_lineX = nullptr;
    NumberChooser* m_lineY = nullptr;
    QGroupBox* m_fieldGroup;
    QGroupBox* m_lineGroup;
    ContourBox* m_contour;
    LineAxesBox* m_lineAxes;
    BlankingBox* m_blanking;
    QScrollArea* m_area;
    SessionFollower m_follower;
};

} // namespace veldraw::app
