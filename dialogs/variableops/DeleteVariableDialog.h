#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user delete variables from the data set of the current frame. It stays open after a deletion.
class VDSDKDIALOGS_DATA_QT_API DeleteVariableDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static DeleteVariableDialog& getInstance(QWidget& parent);

    /// True while there is a data set. Always the same rule, whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~DeleteVariableDialog() override;

private:
    struct Impl;

    explicit DeleteVariableDialog(QWidget& parent);

    static DeleteVariableDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
