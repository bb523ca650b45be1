#pragma once

#include "dialogs/bindings/AbandonedInputFilter.h"
#include "dialogs/bindings/QTextFieldObservable.h"
#include "dialogs/bindings/UIPropertyBindingAbstract.h"

#include <QPointer>
#include <QString>

#include <memory>

class QLineEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The road from the text of a line edit to a property. A concrete binding adds the road back.
///
/// The text is taken when the user has finished with the field, never key by key; see `QTextFieldObservable`. A text
/// that is refused ends in one of three ways, and in none does the property change:
///
/// - The line edit's validator refuses it: the property's value silently stands in the field again.
/// - The property refuses it: the reason is told, then as above.
/// - It passes the validator and can't be read: the field keeps it.
///
/// In the first two the field keeps the focus. A field that the user left as the binding wrote it stands for the property's
/// value with all its digits; what was typed counts as it stands. Blanks around a number don't count where the binding's
/// own validator looks after the field. Text that is unfinished when the window goes off the screen is dropped.
template <typename T>
class LineEditPropertyBindingAbstract : public UIPropertyBindingAbstract<T>
{
public:
    /// Keeps the property alive.
    /// @param lineEdit may be null: there is nothing to type into, and the text is never taken
    LineEditPropertyBindingAbstract(QLineEdit* lineEdit, boost::shared_ptr<PropertyAbstract<T>> property);
    ~LineEditPropertyBindingAbstract() override;

protected:
    /// The caller keeps the property alive.
    LineEditPropertyBindingAbstract(QLineEdit* lineEdit, UIStylePropertyAbstract<T>& uiProperty);

    /// Writes the field.
    void showText(QString const& text);

private:
    void setUp();
    bool applyText();
    bool isAcceptable();
    T enteredValue();
    bool isUntouched() const;
    bool refuse();

    std::unique_ptr<QTextFieldObservable> m_textFieldObservable; // null: no line edit
    std::unique_ptr<AbandonedInputFilter> m_abandonedInput;      // likewise
    QPointer<QLineEdit> const m_lineEdit;
    QString m_shownText; // null until something was shown
};

#define VELDRAW_DECLARE(T) extern template class LineEditPropertyBindingAbstract<T>;
VELDRAW_FOR_EACH_LINE_EDIT_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
