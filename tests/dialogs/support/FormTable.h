#pragma once

#include <string>
#include <vector>

class QDialog;

namespace veldraw::tests {

/// A dialog's form as text, so that it can be compared with a table in one go. For all dialogs.
///
/// Only what the form and the dialog made stands in it; what Qt builds inside its widgets does not.

/// One line a widget, in the order of creation: "object name | class | text | tool tip | buddy". The first line is the dialog
/// with its title. Buttons of button boxes have no object name.
std::vector<std::string> formTable(QDialog const& dialog);

/// One line a place in a layout: "layout | row, column, row span, column span | what stands there", for boxes
/// "layout | position | ...", for stacks "stack | page number | page", with " | alignment N" where there is one. A spacer is
/// "spacer". Layouts come before those that stand in them.
std::vector<std::string> formLayout(QDialog const& dialog);

/// The widgets in the order in which Tab visits them, by object name, nameless ones by their text in brackets. All that can
/// take the focus count, enabled or not.
std::vector<std::string> tabOrder(QDialog const& dialog);

/// Letters that more than one label, button, group or tab of the dialog has as its mnemonic. Pages of one stack are never seen
/// together and may use the same letter.
std::vector<std::string> repeatedMnemonics(QDialog const& dialog);

/// Inputs and buttons that a screen reader could not name, by object name.
std::vector<std::string> inputsWithoutAccessibleName(QDialog const& dialog);

} // namespace veldraw::tests
