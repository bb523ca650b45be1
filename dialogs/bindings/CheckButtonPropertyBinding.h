#pragma once

#include "dialogs/bindings/QObjectPropertyBinding.h"
#include "dialogs/property/DialogsApi.h"

#include <QPointer>

class QAbstractButton;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a button that can be checked to a yes or no. The button follows the property at idle and tells nobody then; the
/// user's click sets the property. A value that the property refuses is told in a message box, if the refusal has a
/// text, and the button goes back.
class VDSDKDIALOGS_DATA_QT_API CheckButtonPropertyBinding : public QObjectPropertyBinding<bool>
{
public:
    /// Keeps the property alive.
    /// @param inverted a checked button means false
    CheckButtonPropertyBinding(QAbstractButton* const button, boost::shared_ptr<PropertyAbstract<bool>> property,
                               bool inverted);
    ~CheckButtonPropertyBinding() override;

    void updateWidgetValue() override;
    /// Nothing to do: a plain property has no visibility of its own.
    void updateWidgetVisibility() override {}
    /// Nothing to do: a plain property has no sensitivity of its own.
    void updateWidgetSensitivity() override {}

private:
    void onToggled(bool isChecked);

    QPointer<QAbstractButton> const m_button;
    boost::shared_ptr<PropertyAbstract<bool>> const m_property;
    bool const m_isInverted;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
