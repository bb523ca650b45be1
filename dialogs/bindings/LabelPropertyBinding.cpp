#include "dialogs/bindings/LabelPropertyBinding.h"

#include "dialogs/bindings/WidgetVote.h"

#include <QAbstractButton>
#include <QLabel>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

// Names and titles are plain text, even if they look like markup.
void showAsItIs(QLabel& label)
{
    if (label.textFormat() == Qt::AutoText)
        label.setTextFormat(Qt::PlainText);
}

} // namespace

LabelPropertyBinding::LabelPropertyBinding(QLabel* const label,
                                           boost::shared_ptr<PropertyAbstract<std::string> const> property,
                                           WidgetUpdateMode_e mode)
    : QObjectPropertyBinding<std::string>(property, mode)
    , m_label(label)
{
    showAsItIs(*label);
    LabelPropertyBinding::updateWidgetValue();
}

LabelPropertyBinding::LabelPropertyBinding(QAbstractButton* const button,
                                           boost::shared_ptr<PropertyAbstract<std::string> const> property,
                                           WidgetUpdateMode_e mode)
    : QObjectPropertyBinding<std::string>(property, mode)
    , m_button(button)
{
    LabelPropertyBinding::updateWidgetValue();
}

LabelPropertyBinding::LabelPropertyBinding(QLabel* const label, UIStylePropertyAbstract<std::string>& uiProperty)
    : QObjectPropertyBinding<std::string>(uiProperty, UpdateOnIdle)
    , m_label(label)
{
    showAsItIs(*label);
    LabelPropertyBinding::updateWidgetValue();
    LabelPropertyBinding::updateWidgetVisibility();
    LabelPropertyBinding::updateWidgetSensitivity();
}

LabelPropertyBinding::~LabelPropertyBinding() = default;

void LabelPropertyBinding::updateWidgetValue()
{
    QString const text = QString::fromStdString(property().value());
    if (m_label)
        m_label->setText(text);
    if (m_button)
        m_button->setText(text);
}

void LabelPropertyBinding::updateWidgetVisibility()
{
    WidgetVote::castFor(&uiProperty(), m_label, WidgetVote::Visible, uiProperty().isVisible());
}

void LabelPropertyBinding::updateWidgetSensitivity()
{
    WidgetVote::castFor(&uiProperty(), m_label, WidgetVote::Enabled, uiProperty().isSensitive());
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
