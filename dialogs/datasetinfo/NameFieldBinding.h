#pragma once

#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/datasetinfo/EditedName.h"

#include <QObject>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a line edit to the name of what is selected. Text that is unfinished when something else is selected is taken as the name of what
/// it was typed for, before the field shows the other name; when what is selected gets another name elsewhere, the user goes on typing.
class NameFieldBinding : public TextFieldPropertyBinding<std::string>
{
public:
    /// Keeps the name alive.
    NameFieldBinding(QLineEdit* lineEdit, boost::shared_ptr<propertymanager::EditedName> name);
    ~NameFieldBinding() override;

    void updateWidgetValue() override;

private:
    bool isTyping() const;

    QPointer<QLineEdit> const m_nameField;
    boost::shared_ptr<propertymanager::EditedName> const m_name;
    QObject m_life; // gone when a message that was told has ended this binding
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
