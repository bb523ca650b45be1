#pragma once

#include "dialogs/bindings/QObjectPropertyBinding.h"
#include "dialogs/property/DialogsApi.h"

#include <QPointer>

class QAbstractButton;
class QLabel;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Shows a text in a label or on a button; nothing goes back to the property. The text is UTF-8 and is given to the widget
/// as it is, mnemonics included; what looks like markup is shown as it is too, unless the form wants rich text.
class VDSDKDIALOGS_DATA_QT_API LabelPropertyBinding : public QObjectPropertyBinding<std::string>
{
public:
    /// Keeps the property alive.
    LabelPropertyBinding(QLabel* const label, boost::shared_ptr<PropertyAbstract<std::string> const> property,
                         WidgetUpdateMode_e mode);
    /// Keeps the property alive.
    LabelPropertyBinding(QAbstractButton* const button, boost::shared_ptr<PropertyAbstract<std::string> const> property,
                         WidgetUpdateMode_e mode);
    /// The label follows the property's visibility and sensitivity too, all at idle. The caller keeps the property alive.
    LabelPropertyBinding(QLabel* const label, UIStylePropertyAbstract<std::string>& uiProperty);
    ~LabelPropertyBinding() override;

    void updateWidgetValue() override;
    void updateWidgetVisibility() override;
    void updateWidgetSensitivity() override;

private:
    // One of the two is null; so is the other when the widget is gone.
    QPointer<QLabel> const m_label;
    QPointer<QAbstractButton> const m_button;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
