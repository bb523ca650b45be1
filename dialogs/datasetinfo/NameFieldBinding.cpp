#include "dialogs/datasetinfo/NameFieldBinding.h"

#include <QLineEdit>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

NameFieldBinding::NameFieldBinding(QLineEdit* lineEdit, boost::shared_ptr<propertymanager::EditedName> name)
    : TextFieldPropertyBinding<std::string>(lineEdit, name)
    , m_nameField(lineEdit)
    , m_name(std::move(name))
{
    m_name->beginEdit();
    setDisplayMode(0);
}

NameFieldBinding::~NameFieldBinding() = default;

// What is typed when the window goes off the screen is dropped.
bool NameFieldBinding::isTyping() const
{
    return m_nameField && m_nameField->isModified() && !m_nameField->window()->isHidden() &&
           m_name->isUnfinished(m_nameField->text().toStdString());
}

void NameFieldBinding::updateWidgetValue()
{
    if (m_nameField && m_nameField->isModified() && m_name->isForAnother()) {
        std::string const typed = m_nameField->text().toStdString();
        m_nameField->setModified(false); // a message takes the focus, at which the field must not offer its text again
        QPointer<QObject> const self = &m_life;
        boost::shared_ptr<propertymanager::EditedName> const keptName = m_name;
        keptName->finishEdit(typed);
        if (!self)
            return;
    } else if (isTyping()) {
        return;
    }
    m_name->beginEdit();
    TextFieldPropertyBinding<std::string>::updateWidgetValue();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
