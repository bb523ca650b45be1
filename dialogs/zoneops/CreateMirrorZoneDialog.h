#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user create mirrored copies of zones of the data set of the current frame, in a 2D plot about an axis, in a 3D plot
/// about a plane. It stays open afterwards.
class VDSDKDIALOGS_DATA_QT_API CreateMirrorZoneDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static CreateMirrorZoneDialog& getInstance(QWidget& parent);

    /// True while the current frame has a data set and shows it as a field plot. Always the same rule, whether or not
    /// there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~CreateMirrorZoneDialog() override;

private:
    struct Impl;

    explicit CreateMirrorZoneDialog(QWidget& parent);

    static CreateMirrorZoneDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
