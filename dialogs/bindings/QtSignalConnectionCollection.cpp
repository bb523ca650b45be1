#include "dialogs/bindings/QtSignalConnectionCollection.h"

#include <QObject>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

QtSignalConnectionCollection::QtSignalConnectionCollection() = default;

QtSignalConnectionCollection::~QtSignalConnectionCollection()
{
    clear();
}

void QtSignalConnectionCollection::add(QMetaObject::Connection const& connection)
{
    m_connections.push_back(connection);
}

void QtSignalConnectionCollection::clear()
{
    // A slot's destruction may reach back into this collection, so it is emptied first.
    std::vector<QMetaObject::Connection> const connections = std::exchange(m_connections, {});
    for (QMetaObject::Connection const& connection : connections)
        QObject::disconnect(connection);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
