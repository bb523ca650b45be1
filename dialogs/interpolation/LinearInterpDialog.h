#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user interpolate variables from zones to another zone, linearly within the cells of the sources. It stays open
/// afterwards.
class VDSDKDIALOGS_DATA_QT_API LinearInterpDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static LinearInterpDialog& getInstance(QWidget& parent);

    /// True in a 2D or 3D plot of several enabled zones, one of them with cells, with a variable that is no coordinate. Always the
    /// same rule, whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~LinearInterpDialog() override;

private:
    struct Impl;

    explicit LinearInterpDialog(QWidget& parent);

    static LinearInterpDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
