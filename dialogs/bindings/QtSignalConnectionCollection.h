#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QMetaObject>

#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Qt connections that end together, when the collection is cleared or destroyed.
class VDSDKDIALOGS_DATA_QT_API QtSignalConnectionCollection
{
public:
    QtSignalConnectionCollection();
    QtSignalConnectionCollection(QtSignalConnectionCollection const&) = delete;
    QtSignalConnectionCollection& operator=(QtSignalConnectionCollection const&) = delete;
    ~QtSignalConnectionCollection();

    void add(QMetaObject::Connection const& connection);

    /// Disconnects and forgets all; connections whose objects are gone already do no harm.
    void clear();

private:
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
