#include "tests/tour/MirrorZoneStation.h"

#include "app/window/HelpViewer.h"
#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "kernel/session/Session.h"
#include "tests/tour/ZoneProbe.h"

#include <QAction>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

namespace veldraw::tests {

using namespace app;

using dialogs::data::CreateMirrorZoneDialog;

namespace {

constexpr char const* sourceListName = "createMirrorZone_Source_MList";
QString const created = QStringLiteral("Mirror zone creation successful.");

ZoneProbe::Triple negatedX(ZoneProbe::Triple const& value)
{
    return {-value[0], value[1], value[2]};
}

} // namespace

MirrorZoneStation::MirrorZoneStation(TourContext& context)
    : m_tour(context)
    , m_namesAtStart(TourContext::zoneNames())
    , m_countAtStart(TourContext::dataSet().zoneCount())
{
}

void MirrorZoneStation::run()
{
    m_tour.user.picture(QStringLiteral("mirror-before"));
    auto* const dialog = m_tour.openDialog<CreateMirrorZoneDialog>(Qt::Key_M);
    if (!m_tour.check("Alt+D, M opens Create Mirror Zone", dialog != nullptr))
        return;
    m_tour.check("window title", QStringLiteral("Create Mirror Zone"), dialog->windowTitle());
    tryWhatIsRefused();
    mirrorInSpaceByMouse();
    mirrorInThePlaneByKeyboard();
    undoAndRedo();
    askForHelp();
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog->isVisible(); });
}

void MirrorZoneStation::tryWhatIsRefused()
{
    auto& dialog = *UserDriver::visibleWindow<CreateMirrorZoneDialog>();
    m_tour.expectMessage("nothing selected: the message", QStringLiteral("No source zones were specified"),
                         TourContext::button(dialog, "C&reate"));
    m_tour.check("the refusal changes nothing", m_namesAtStart, TourContext::zoneNames());
}

void MirrorZoneStation::mirrorInSpaceByMouse()
{
    auto& dialog = *UserDriver::visibleWindow<CreateMirrorZoneDialog>();
    QListView& list = TourContext::list(dialog, sourceListName);
    m_tour.expect("a 3D plot offers planes", QStringLiteral("XY plane, XZ plane, YZ plane"),
                  [&] { return visibleChoices(); });
    auto& plane = *dialog.findChild<QRadioButton*>(QStringLiteral("createMirrorZone_Axis3DYZ_RadioButton"));
    m_tour.user.click(plane, QPoint(8, plane.height() / 2));
    m_tour.expectThat("a click chooses the YZ plane", [&] { return plane.isChecked(); });
    m_tour.user.clickRow(list, 0);
    m_tour.user.picture(QStringLiteral("mirror-planes"));
    m_tour.expectMessage("a zone clicked, \"Create\" clicked: the message", created,
                         TourContext::button(dialog, "C&reate"));
    int const copy = m_countAtStart + 1;
    if (!m_tour.check("one zone more in the data set", copy, TourContext::dataSet().zoneCount()))
        return;
    m_tour.expect("one row more in the list", copy, [&] { return list.model()->rowCount(); });
    ZoneProbe const source(1);
    m_tour.check("every X has changed its sign, Y and Z are as they were",
                 source.distance(ZoneProbe(copy), negatedX) == 0.0);
    m_tour.check("the vector's first component has changed its sign, the others not",
                 source.vectorDistance(ZoneProbe(copy), negatedX) == 0.0);
    m_tour.user.picture(QStringLiteral("mirror-after"));
}

void MirrorZoneStation::mirrorInThePlaneByKeyboard()
{
    auto& dialog = *UserDriver::visibleWindow<CreateMirrorZoneDialog>();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_2);
    m_tour.expect("a 2D plot offers axes instead", QStringLiteral("X axis, Y axis"), [&] { return visibleChoices(); });
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_X, Qt::AltModifier);
    m_tour.user.key(Qt::Key_S, Qt::AltModifier);
    m_tour.user.key(Qt::Key_Home);
    m_tour.user.picture(QStringLiteral("mirror-axes"));
    m_tour.expectMessage("Alt+X, Alt+S, Home, Alt+R mirrors a zone about the X axis: the message", created, Qt::Key_R,
                         Qt::AltModifier);
    int const copy = m_countAtStart + 2;
    if (m_tour.check("one zone more again", copy, TourContext::dataSet().zoneCount()))
        m_tour.check("every Y has changed its sign",
                     ZoneProbe(1).distance(ZoneProbe(copy), ZoneProbe::negatedY) == 0.0);
    m_tour.user.picture(QStringLiteral("mirror-after-in-2d"));
}

void MirrorZoneStation::undoAndRedo()
{
    QString const namesWithCopies = TourContext::zoneNames();
    m_tour.activate(m_tour.window);
    QAction const* const undo = m_tour.action("undoAction");
    m_tour.expect("the Edit menu names the step", QStringLiteral("&Undo Create Mirror Zone"),
                  [&] { return undo ? undo->text() : QString(); });
    // The second mirror image, the plot type, the first one.
    for (int step = 0; step < 3; ++step)
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z takes both away", m_namesAtStart, &TourContext::zoneNames);
    m_tour.expect("the dialog offers planes again", QStringLiteral("XY plane, XZ plane, YZ plane"),
                  [&] { return visibleChoices(); });
    for (int step = 0; step < 3; ++step)
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expect("Ctrl+Shift+Z brings them again", namesWithCopies, &TourContext::zoneNames);
    for (int step = 0; step < 3; ++step)
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.user.waitFor([&] { return TourContext::zoneNames() == m_namesAtStart; });
}

void MirrorZoneStation::askForHelp()
{
    m_tour.activate(*UserDriver::visibleWindow<CreateMirrorZoneDialog>());
    m_tour.user.key(Qt::Key_F1);
    m_tour.user.waitFor([] { return UserDriver::visibleWindow<HelpViewer>() != nullptr; });
    auto* const viewer = UserDriver::visibleWindow<HelpViewer>();
    if (!m_tour.check("F1 opens the help viewer", viewer != nullptr))
        return;
    m_tour.check("at the page of the dialog", QStringLiteral("Help: Create Mirror Zone"), viewer->windowTitle());
    m_tour.user.picture(QStringLiteral("mirror-help"));
    viewer->close();
}

QString MirrorZoneStation::visibleChoices() const
{
    QStringList texts;
    for (QRadioButton const* const choice :
         UserDriver::visibleWindow<CreateMirrorZoneDialog>()->findChildren<QRadioButton*>())
        if (choice->isVisible())
            texts.push_back(QString(choice->text()).remove(QLatin1Char('&')));
    texts.sort();
    return texts.join(QStringLiteral(", "));
}

} // namespace veldraw::tests
