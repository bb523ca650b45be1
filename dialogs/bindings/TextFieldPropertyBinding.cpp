#include "dialogs/bindings/TextFieldPropertyBinding.h"

#include "dialogs/bindings/WidgetVote.h"

#include <QLineEdit>

#include <boost/format.hpp>

#include <locale>

namespace veldraw::sdk::ui::dialogs::propertybindings {

template <typename T>
TextFieldPropertyBinding<T>::TextFieldPropertyBinding(QLineEdit* lineEdit,
                                                      boost::shared_ptr<PropertyAbstract<T>> property)
    : LineEditPropertyBindingAbstract<T>(lineEdit, property)
    , m_lineEdit(lineEdit)
{
    TextFieldPropertyBinding::updateWidgetValue();
}

template <typename T>
TextFieldPropertyBinding<T>::TextFieldPropertyBinding(QLineEdit* lineEdit, UIStylePropertyAbstract<T>& uiProperty)
    : LineEditPropertyBindingAbstract<T>(lineEdit, uiProperty)
    , m_lineEdit(lineEdit)
{
    TextFieldPropertyBinding::updateWidgetValue();
    TextFieldPropertyBinding::updateWidgetVisibility();
    TextFieldPropertyBinding::updateWidgetSensitivity();
}

template <typename T>
TextFieldPropertyBinding<T>::~TextFieldPropertyBinding() = default;

template <typename T>
void TextFieldPropertyBinding<T>::updateWidgetValue()
{
    if (!m_lineEdit)
        return;
    boost::format text(m_formatString, std::locale::classic());
    this->showText(QString::fromStdString((text % this->property().value()).str()));
    if (m_displayMode == 0)
        m_lineEdit->home(false);
}

template <typename T>
void TextFieldPropertyBinding<T>::updateWidgetVisibility()
{
    WidgetVote::castFor(&this->uiProperty(), m_lineEdit, WidgetVote::Visible, this->uiProperty().isVisible());
}

template <typename T>
void TextFieldPropertyBinding<T>::updateWidgetSensitivity()
{
    WidgetVote::castFor(&this->uiProperty(), m_lineEdit, WidgetVote::Enabled, this->uiProperty().isSensitive());
}

template <typename T>
void TextFieldPropertyBinding<T>::setFormatString(std::string const& formatString)
{
    boost::format trial(formatString);
    (trial % this->property().value()).str();
    m_formatString = formatString;
    updateWidgetValue();
}

template <typename T>
void TextFieldPropertyBinding<T>::setDisplayMode(int displayMode)
{
    m_displayMode = displayMode;
    updateWidgetValue();
}

#define VELDRAW_INSTANTIATE(T) template class TextFieldPropertyBinding<T>;
VELDRAW_FOR_EACH_TEXT_FIELD_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
