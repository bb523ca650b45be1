#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user load variables that a data set has deferred, zone by zone. Modal, and it stays open after a load.
class VDSDKDIALOGS_DATA_QT_API LoadVariablesDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    /// @param zone one-based number of the zone that a new dialog begins with; a dialog that exists keeps its own
    static LoadVariablesDialog& getInstance(QWidget& parent, int zone);

    /// True while there is a data set. Always the same rule, whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~LoadVariablesDialog() override;

private:
    struct Impl;

    LoadVariablesDialog(QWidget& parent, int zone);

    static LoadVariablesDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
