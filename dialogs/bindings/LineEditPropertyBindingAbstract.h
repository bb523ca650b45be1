#pragma once

#include "dialogs/bindings/AbandonedInputFilter.h"
#include "dialogs/bindings/QTextFieldObservable.h"
#include "dialogs/bindings/UIPropertyBindingAbstract.h"

#include <QPointer>
#include <QString>

#include <memory>

class QLineEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Sets a property from the text of a line edit. A concrete binding adds the other direction: it writes the property's
/// value into the field with `showText`.
///
/// The property is set when the user has finished with the field, not at each key; see `QTextFieldObservable`. A refused
/// text does not change the property:
///
/// | who refuses | message box | the field afterwards |
/// |---|---|---|
/// | the line edit's validator | none | shows the property's value and keeps the focus |
/// | the property | with the reason | shows the property's value and keeps the focus |
/// | the conversion, after the validator accepted | none | keeps the text |
///
/// A field whose text the user has not changed stands for the property's value with all its digits, however few the field
/// shows. With the binding's own validator, blanks around a number don't count. Text that is unfinished when the window
/// goes off the screen is dropped.
template <typename T>
class LineEditPropertyBindingAbstract : public UIPropertyBindingAbstract<T>
{
public:
    /// Keeps the property alive.
    /// @param lineEdit may be null; the binding then never sets the property
    LineEditPropertyBindingAbstract(QLineEdit* lineEdit, boost::shared_ptr<PropertyAbstract<T>> property);
    ~LineEditPropertyBindingAbstract() override;

protected:
    /// The caller keeps the property alive.
    LineEditPropertyBindingAbstract(QLineEdit* lineEdit, UIStylePropertyAbstract<T>& uiProperty);

    /// Writes the field and remembers the text, so that an unchanged field is known as such.
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
