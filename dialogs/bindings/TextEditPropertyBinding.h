#pragma once

#include "dialogs/bindings/AbandonedInputFilter.h"
#include "dialogs/bindings/QTextEditObservable.h"
#include "dialogs/bindings/UIPropertyBindingAbstract.h"
#include "dialogs/property/DialogsApi.h"

#include <QPointer>

class QTextEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a multi-line text field to a text, UTF-8 with "\n" between lines, shown as plain text.
///
/// The property is set when the field loses the focus after the user edited it. A text that the property refuses is told
/// in a message box, if the refusal has a text; the field shows the property's text again and keeps the focus. Tab leaves
/// the field. Text that is unfinished when the window goes off the screen is dropped.
class VDSDKDIALOGS_DATA_QT_API TextEditPropertyBinding : public UIPropertyBindingAbstract<std::string>
{
public:
    /// Keeps the property alive.
    /// @param readOnly the user can read, select and copy only
    TextEditPropertyBinding(QTextEdit* textEdit, boost::shared_ptr<PropertyAbstract<std::string>> property,
                            bool readOnly);
    ~TextEditPropertyBinding() override;

    void updateWidgetValue() override;
    /// Nothing to do: a plain property has no visibility of its own.
    void updateWidgetVisibility() override {}
    /// Nothing to do: a plain property has no sensitivity of its own.
    void updateWidgetSensitivity() override {}

private:
    void applyText();

    QPointer<QTextEdit> const m_textEdit;
    QTextEditObservable m_observable;
    AbandonedInputFilter m_abandonedInput;
    boost::shared_ptr<PropertyAbstract<std::string>> const m_property;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
