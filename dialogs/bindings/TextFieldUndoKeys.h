#pragma once

#include <QObject>

class QLineEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Leaves the keys of undo and redo to the application while nothing is being typed in a field. Without it the field keeps them to itself
/// also when it has nothing to take back, so that Ctrl+Z does nothing right after a text was finished by Return.
class TextFieldUndoKeys : public QObject
{
public:
    TextFieldUndoKeys(QLineEdit& field, QObject* parentObject);
    ~TextFieldUndoKeys() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
