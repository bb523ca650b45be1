#include "dialogs/bindings/LineEditPropertyBindingAbstract.h"

#include "dialogs/bindings/InstalledValidator.h"
#include "dialogs/bindings/StringConverter.h"
#include "dialogs/bindings/StringMassager.h"
#include "dialogs/bindings/TextFieldUndoKeys.h"
#include "dialogs/widgets/NumberValidators.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QLineEdit>
#include <QValidator>

#include <type_traits>
#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

template <typename T>
LineEditPropertyBindingAbstract<T>::LineEditPropertyBindingAbstract(QLineEdit* lineEdit,
                                                                    boost::shared_ptr<PropertyAbstract<T>> property)
    : UIPropertyBindingAbstract<T>(std::move(property), BindingInterface::UpdateOnIdle)
    , m_lineEdit(lineEdit)
{
    setUp();
}

template <typename T>
LineEditPropertyBindingAbstract<T>::LineEditPropertyBindingAbstract(QLineEdit* lineEdit,
                                                                    UIStylePropertyAbstract<T>& uiProperty)
    : UIPropertyBindingAbstract<T>(uiProperty, BindingInterface::UpdateOnIdle)
    , m_lineEdit(lineEdit)
{
    setUp();
}

template <typename T>
LineEditPropertyBindingAbstract<T>::~LineEditPropertyBindingAbstract() = default;

template <typename T>
void LineEditPropertyBindingAbstract<T>::setUp()
{
    if (!m_lineEdit)
        return;
    if constexpr (std::is_same_v<T, double>)
        installValidator(*m_lineEdit, AcceptedText::Number);
    else if constexpr (std::is_same_v<T, std::string>)
        installValidator(*m_lineEdit, AcceptedText::Anything);
    else
        installValidator(*m_lineEdit, AcceptedText::WholeNumber);
    m_textFieldObservable = std::make_unique<QTextFieldObservable>(*m_lineEdit, [this] { return applyText(); });
    m_abandonedInput = std::make_unique<AbandonedInputFilter>(*m_lineEdit, [this] { this->updateWidgetValue(); });
    new TextFieldUndoKeys(*m_lineEdit, m_textFieldObservable.get());
}

template <typename T>
void LineEditPropertyBindingAbstract<T>::showText(QString const& text)
{
    m_lineEdit->setText(text);
    m_shownText = m_lineEdit->text(); // a field may cut it
}

template <typename T>
bool LineEditPropertyBindingAbstract<T>::applyText()
{
    AppLock const lock(AppLock::RecordAsUsual);
    veldraw::ui::dropBlanksAround(*m_lineEdit);
    if (!isAcceptable())
        return refuse();
    // Listeners of the property, and whatever happens while a message is read, may end this binding.
    QPointer<QObject> const self = m_textFieldObservable.get();
    try {
        this->setPropertyValue(enteredValue());
        if (self)
            this->updateWidgetValue();
        return true;
    } catch (InvalidPropertyValueException const& refusal) {
        if (*refusal.what())
            VelUtilDialogMessageBox(refusal.what(), MessageBoxType_Error);
        return self && refuse();
    } catch (InvalidArgumentException const&) {
        // What can't be read stays in the field, for the user to go on with.
        return false;
    }
}

template <typename T>
bool LineEditPropertyBindingAbstract<T>::isAcceptable()
{
    QValidator const* const validator = m_lineEdit->validator();
    QString text = m_lineEdit->text();
    if constexpr (std::is_same_v<T, double>)
        StringMassager().prepareText(this->property(), text);
    if (!validator)
        return true;
    int position = m_lineEdit->cursorPosition();
    QValidator::State state = validator->validate(text, position);
    if (state == QValidator::Invalid) {
        validator->fixup(text);
        state = validator->validate(text, position);
    }
    return state == QValidator::Acceptable;
}

// Converts the text of the field itself, not the one that was made acceptable for the validator.
template <typename T>
T LineEditPropertyBindingAbstract<T>::enteredValue()
{
    if (isUntouched())
        return this->property().value();
    return intern::convertTo<T>(intern::StringConverter(m_lineEdit->text().toStdString()));
}

// An unchanged text must not replace the value, which may have more digits than the text. The same text, typed by the user,
// does replace it.
template <typename T>
bool LineEditPropertyBindingAbstract<T>::isUntouched() const
{
    return !m_shownText.isNull() && !m_lineEdit->isModified() && m_lineEdit->text() == m_shownText;
}

// False, for the text was not taken.
template <typename T>
bool LineEditPropertyBindingAbstract<T>::refuse()
{
    this->updateWidgetValue();
    if (m_lineEdit) {
        m_lineEdit->activateWindow();
        m_lineEdit->setFocus();
    }
    return false;
}

#define VELDRAW_INSTANTIATE(T) template class LineEditPropertyBindingAbstract<T>;
VELDRAW_FOR_EACH_LINE_EDIT_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
