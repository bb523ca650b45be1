#include "dialogs/frame/TabWidgetPersistence.h"

#include <QMap>
#include <QString>
#include <QTabWidget>

namespace veldraw::dialogs::common {

namespace {

// Name of the current page by name of the tab widget.
QMap<QString, QString>& currentPages()
{
    static QMap<QString, QString> pages;
    return pages;
}

} // namespace

TabWidgetPersistence::TabWidgetPersistence(QTabWidget& tabs)
    : m_tabs(&tabs)
{
}

TabWidgetPersistence::~TabWidgetPersistence() = default;

void TabWidgetPersistence::save() const
{
    if (!m_tabs || !m_tabs->currentWidget() || m_tabs->objectName().isEmpty())
        return;
    QString const page = m_tabs->currentWidget()->objectName();
    if (!page.isEmpty())
        currentPages()[m_tabs->objectName()] = page;
}

void TabWidgetPersistence::restore() const
{
    if (!m_tabs)
        return;
    QString const page = currentPages().value(m_tabs->objectName());
    for (int index = 0; !page.isEmpty() && index < m_tabs->count(); ++index)
        if (m_tabs->widget(index)->objectName() == page)
            m_tabs->setCurrentIndex(index);
}

} // namespace veldraw::dialogs::common
