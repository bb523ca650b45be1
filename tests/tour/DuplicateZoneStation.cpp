#include "tests/tour/DuplicateZoneStation.h"

#include "dialogs/zoneops/DuplicateZoneDialog.h"

#include <QListView>
#include <QPushButton>

namespace veldraw::tests {

using dialogs::data::DuplicateZoneDialog;

DuplicateZoneStation::DuplicateZoneStation(TourContext& context)
    : m_tour(context)
    , m_namesAtStart(TourContext::zoneNames())
    , m_countAtStart(TourContext::dataSet().zoneCount())
{
}

void DuplicateZoneStation::run()
{
    auto* const dialog = m_tour.openDialog<DuplicateZoneDialog>(Qt::Key_U);
    if (!m_tour.check("Alt+D, U opens Create Duplicate Zone", dialog != nullptr))
        return;
    m_tour.check("window title", QStringLiteral("Create Duplicate Zone"), dialog->windowTitle());
    m_tour.expectMessage("nothing selected, Alt+R: the message", QStringLiteral("No zones are selected"), Qt::Key_R,
                         Qt::AltModifier);
    duplicateByKeyboard();
    undoAndRedo();
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog->isVisible(); });
}

void DuplicateZoneStation::duplicateByKeyboard()
{
    auto& dialog = *UserDriver::visibleWindow<DuplicateZoneDialog>();
    QListView const& list = TourContext::list(dialog, "duplicateZone_Source_MList");
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_Z, Qt::AltModifier);
    m_tour.user.key(Qt::Key_Home);
    m_tour.user.key(Qt::Key_Down, Qt::ShiftModifier);
    m_tour.expect("Alt+Z, Home, Shift+Down selects two zones", 2, [&] { return TourContext::selectedRowCount(list); });
    m_tour.user.picture(QStringLiteral("duplicate-zone-selected"));
    m_tour.expectMessage("Alt+R duplicates them: the message", QStringLiteral("Duplicate zone(s) created"), Qt::Key_R,
                         Qt::AltModifier);
    m_tour.check("two zones more in the data set", m_countAtStart + 2, TourContext::dataSet().zoneCount());
    m_tour.expect("two rows more in the list", m_countAtStart + 2, [&] { return list.model()->rowCount(); });
    m_tour.check("the copies share their values with the source", 2,
                 TourContext::dataSet().field(m_countAtStart + 1, 1)->shareCount());
    m_tour.user.picture(QStringLiteral("duplicate-zone-done"));
}

void DuplicateZoneStation::undoAndRedo()
{
    QString const namesWithCopies = TourContext::zoneNames();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z takes the copies away", m_namesAtStart, &TourContext::zoneNames);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expect("Ctrl+Shift+Z brings them again", namesWithCopies, &TourContext::zoneNames);
}

} // namespace veldraw::tests
