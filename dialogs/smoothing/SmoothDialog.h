#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user smooth a variable of a zone, in place. It stays open afterwards.
class VDSDKDIALOGS_DATA_QT_API SmoothDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static SmoothDialog& getInstance(QWidget& parent);

    /// True while the kernel can smooth: in field plots and line plots with an enabled zone and variable. Always the same rule,
    /// whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~SmoothDialog() override;

private:
    struct Impl;

    explicit SmoothDialog(QWidget& parent);

    static SmoothDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
