#include "app/window/AssignmentDialog.h"

#include "app/window/AssignmentPanel.h"
#include "kernel/operations/SetPlotType.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>

namespace veldraw::app {

AssignmentDialog::AssignmentDialog(kernel::Session& session, Kind kind, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_session(session)
    , m_kind(kind)
    , m_frame(session.activeFrame()->id)
{
    bool const isVector = kind == Kind::Vector;
    setObjectName(isVector ? QStringLiteral("assignVectorDialog") : QStringLiteral("assignAxesDialog"));
    setWindowTitle(isVector ? QStringLiteral("Assign Vector") : QStringLiteral("Assign Axes"));
    auto* const layout = new QVBoxLayout(this);
    auto* const form = new QFormLayout;
    kernel::Frame const& frame = *session.activeFrame();
    std::string const letters = isVector ? "UVW" : "XYZ";
    for (char const letter : letters.substr(0, frame.plotType == PlotType_Cartesian3D ? 3 : 2))
        addChooser(*form, letter, frame);
    layout->addLayout(form);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    m_choosers.begin()->second->setFocus();
}

void AssignmentDialog::addChooser(QFormLayout& form, char assignment, kernel::Frame const& frame)
{
    QString const letter = QString(QLatin1Char(assignment));
    QString const text = m_kind == Kind::Vector ? QStringLiteral("Vector ") : QStringLiteral("Axis ");
    auto* const chooser = new NumberChooser(QStringLiteral("choose") + letter, text + letter);
    chooser->show(AssignmentPanel::variableChoices(m_session, AssignmentPanel::noneText()),
                  frame.variableNumber(assignment));
    form.addRow(QLatin1Char('&') + letter + QLatin1Char(':'), chooser);
    m_choosers[assignment] = chooser;
}

bool AssignmentDialog::isPossible(kernel::Session const& session)
{
    auto const frame = session.activeFrame();
    return frame && frame->dataSet &&
           (frame->plotType == PlotType_Cartesian2D || frame->plotType == PlotType_Cartesian3D);
}

bool AssignmentDialog::assign()
{
    auto const frame = m_session.frame(m_frame);
    if (!frame)
        return false;
    bool isDone = true;
    m_session.history().beginGroup(m_kind == Kind::Vector ? "Assign Vector" : "Assign Axes");
    for (auto const& [assignment, chooser] : m_choosers)
        if (frame->variableNumber(assignment) != chooser->number())
            isDone = m_session.perform(kernel::AssignVariable(m_frame, assignment, chooser->number())) && isDone;
    m_session.history().endGroup();
    return isDone;
}

} // namespace veldraw::app
