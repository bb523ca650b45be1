#pragma once

#include "dialogs/frame/QtDialogAbstract.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <boost/shared_ptr.hpp>

#include <ostream>
#include <string>
#include <vector>

namespace veldraw::tests {

/// What the common tests have to know of a dialog that shows rows to choose from, in a list, a table or a combo box, and mostly has
/// a button that does something with them.
struct DialogTraits
{
    /// The traits of a class of dialogs, with the words still to be filled in.
    template <typename Dialog>
    static DialogTraits of()
    {
        DialogTraits traits;
        traits.instance = [](QWidget& parent) -> dialogs::common::QtDialogAbstract& {
            return Dialog::getInstance(parent);
        };
        traits.relevance = &Dialog::relevance;
        return traits;
    }

    dialogs::common::QtDialogAbstract& (*instance)(QWidget& parent) = nullptr;
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> (*relevance)() = nullptr;
    std::string list;                           ///< object name of the list, table or combo box
    std::string action;                         ///< text of the button that does it; empty if there is none
    std::string buttonBox = "buttonBox";        ///< object name of the box that has it
    std::string refusal;                        ///< what the button says while nothing is chosen
    std::string helpTopic;                      ///< the page that F1 opens
    PlotType_e plotType = PlotType_Sketch;      ///< of the frame; for dialogs that want a field plot
    std::vector<std::string> repeatedMnemonics; ///< where the form's own texts share a letter
    bool actionNeedsSelection = false; ///< the button is disabled, instead of refusing, while nothing is chosen
    void (*selectMore)(QDialog& dialog) = nullptr; ///< what the button needs besides a row; null for nothing
    bool isChoiceOfLibrary = false;                ///< there always is one, and it outlives the dialog
    bool followsItsRule = true;                    ///< the controls are disabled while the rule is false
    bool defersVariables = false;                  ///< all values wait to be loaded
    bool zonesAreLines = false;                    ///< of six points, instead of blocks of three by two
    bool bindsActionBeforeList = true;             ///< which of the two bindings is made, and ends, first
    /// Object names of combo boxes and lists in the order in which their bindings are made; the list alone when empty.
    std::vector<std::string> boundInOrder;
};

inline void PrintTo(DialogTraits const& traits, std::ostream* stream)
{
    *stream << "the dialog with " << traits.list;
}

} // namespace veldraw::tests
