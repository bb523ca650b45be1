#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user duplicate zones of the data set of the current frame. It stays open after a duplication.
class VDSDKDIALOGS_DATA_QT_API DuplicateZoneDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static DuplicateZoneDialog& getInstance(QWidget& parent);

    /// True while there is a data set. Always the same rule, whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~DuplicateZoneDialog() override;

private:
    struct Impl;

    explicit DuplicateZoneDialog(QWidget& parent);

    static DuplicateZoneDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
