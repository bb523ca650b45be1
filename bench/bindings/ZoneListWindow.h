#pragma once

#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "kernel/session/Session.h"

#include <QListView>

#include <memory>
#include <set>

namespace veldraw::bench {

/// A visible list of the enabled zones of a data set, bound to a selection, over the real kernel.
class ZoneListWindow
{
public:
    using Values = std::set<int>;

    explicit ZoneListWindow(int zoneCount);

    /// Lets the event loop do what a change has left to do, painting included.
    void settle();

    /// The values first, first + step, ... up to last.
    static Values everyNth(int first, int last, int step);

    kernel::Session& session = kernel::Session::instance();
    std::shared_ptr<kernel::DataSet> dataSet;
    boost::shared_ptr<sdk::ui::dialogs::propertybindings::models::ZoneListModel> zones;
    boost::shared_ptr<Property<Values>> selection;
    QListView view;
    std::unique_ptr<sdk::ui::dialogs::propertybindings::ListViewPropertyBinding> binding;
    int resets = 0;
};

} // namespace veldraw::bench
