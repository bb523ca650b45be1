#include "dialogs/bindings/TextFieldUndoKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace veldraw::sdk::ui::dialogs::propertybindings {

TextFieldUndoKeys::TextFieldUndoKeys(QLineEdit& field, QObject* parentObject)
    : QObject(parentObject)
{
    field.installEventFilter(this);
}

TextFieldUndoKeys::~TextFieldUndoKeys() = default;

bool TextFieldUndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    auto const* const field = qobject_cast<QLineEdit*>(watched);
    if (event->type() != QEvent::ShortcutOverride || !field || field->isUndoAvailable() || field->isRedoAvailable())
        return false;
    auto* const key = static_cast<QKeyEvent*>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return false;
    key->ignore(); // as nobody's, the key goes to the shortcuts
    return true;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
