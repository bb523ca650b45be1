#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user rotate zones of the data set of the current frame about an axis, in place.
/// It stays open afterwards.
class VDSDKDIALOGS_DATA_QT_API AxialRotationDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored. When it is made, the
    /// zones that are picked in the plot are selected.
    static AxialRotationDialog& getInstance(QWidget& parent);

    /// True while there is a data set in a 2D or 3D plot. Always the same rule, whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~AxialRotationDialog() override;

private:
    struct Impl;

    explicit AxialRotationDialog(QWidget& parent);

    static AxialRotationDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
