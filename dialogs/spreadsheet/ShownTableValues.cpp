#include "dialogs/spreadsheet/ShownTableValues.h"

#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"

#include <QAbstractItemView>
#include <QEvent>

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::ZoneVarTableModelAbstract;

ShownTableValues::ShownTableValues(QAbstractItemView& view)
    : QObject(&view)
    , m_view(view)
{
    m_view.installEventFilter(this);
}

ShownTableValues::~ShownTableValues() = default;

void ShownTableValues::follow(TableModel const& table)
{
    auto const* const values = dynamic_cast<ZoneVarTableModelAbstract const*>(&table);
    m_zone = values ? values->zone() : 0;
    m_variables = values ? values->variables() : toolbox::Set();
    if (m_view.isVisible())
        declare();
}

void ShownTableValues::declare()
{
    if (m_zone != 0)
        m_shown.set(m_zone, m_variables);
    else
        m_shown.clear();
}

bool ShownTableValues::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show)
        declare();
    if (event->type() == QEvent::Hide)
        m_shown.clear();
    return QObject::eventFilter(watched, event);
}

} // namespace veldraw::sdk::ui::propertymanager
