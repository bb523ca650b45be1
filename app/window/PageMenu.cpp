#include "app/window/PageMenu.h"

#include "app/window/NewAction.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::app {

PageMenu::PageMenu(kernel::Session& session, int zone, QWidget& window)
    : QMenu(&window)
    , m_session(session)
{
    setObjectName(QStringLiteral("pageMenu"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto const frame = session.activeFrame();
    if (frame && frame->dataSet && zone > 0 && zone <= frame->dataSet->zoneCount())
        addZone(*frame->dataSet, zone);
}

void PageMenu::addZone(kernel::DataSet const& dataSet, int zone)
{
    auto const meant = dataSet.zone(zone);
    QString name = QString::fromStdString(meant->name);
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    QAction* const title = addAction(QStringLiteral("Zone %1: %2").arg(zone).arg(name));
    title->setObjectName(QStringLiteral("zoneTitleAction"));
    title->setEnabled(false);
    addAction(newAction(*this, "disableZoneAction", {}, QStringLiteral("&Disable Zone"),
                        [this, id = meant->id] { disable(id); }));
    addSeparator();
}

// The menu may have been open for a while: its zone may have another number now, or none.
void PageMenu::disable(kernel::UniqueId zone)
{
    auto const frame = m_session.activeFrame();
    int const number = frame && frame->dataSet ? frame->dataSet->zoneNumber(zone) : 0;
    if (number == 0 || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(kernel::EnableZone(*frame->dataSet, number, false)))
        Q_EMIT refused();
}

} // namespace veldraw::app
