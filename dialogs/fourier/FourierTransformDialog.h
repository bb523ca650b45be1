#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user transform variables along lines into amplitudes and phases over the frequency, which are shown in a frame of their
/// own. It stays open afterwards.
class VDSDKDIALOGS_DATA_QT_API FourierTransformDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static FourierTransformDialog& instance(QWidget& parent);

    /// True while the active frame has an enabled zone that can be transformed. Always the same rule, whether or not there is a
    /// dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~FourierTransformDialog() override;

private:
    struct Impl;

    explicit FourierTransformDialog(QWidget& parent);

    static FourierTransformDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
