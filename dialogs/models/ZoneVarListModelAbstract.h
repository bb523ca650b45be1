#pragma once

#include "dialogs/models/NamedNumbersListModelAbstract.h"
#include "dialogs/property/DialogsApi.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdtoolbox/Set.h"
#include "platform/vdtoolbox/StateChangeListenerInterface.h"

#include <boost/function.hpp>

#include <string>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A list of numbers of zones or variables of the active frame's data set, in ascending order, that stays true: it
/// reads its source again after the kernel's events, inside the first one of a turn of the event loop, and tells its
/// listeners only what really changed. Bindings need not watch the kernel.
///
/// A row reads "<number>: <name>". Without a frame the list is empty.
class VDSDKDIALOGS_DATA_QT_API ZoneVarListModelAbstract : public NamedNumbersListModelAbstract,
                                                          private toolbox::StateChangeListenerInterface
{
public:
    using Source = boost::function<toolbox::Set(long long)>;
    using NumberOfID = int (*)(long long);
    using Name = boost::function<std::string(long long, int)>;
    using IDOf = boost::function<long long(long long, int)>;
    using Rename = boost::function<char(long long, int, char const*)>;

    /// @param source the numbers that belong in the list, of a frame by unique identifier
    /// @param numberOfID the current number of a unique identifier, 0 if there is none
    /// @param name of (frame identifier, number)
    /// @param idOf unique identifier of (frame identifier, number)
    /// @param stateChange an event after which the names are read again, besides those that change the content
    /// @param rename renames (frame identifier, number, new name) and reports success; empty: the list can't be edited
    ZoneVarListModelAbstract(Source const& source, NumberOfID numberOfID, Name const& name, IDOf const& idOf,
                             StateChange_e stateChange, Rename const& rename);
    ~ZoneVarListModelAbstract() override;

    /// The plain name.
    std::string getStrForEdit(int index) const override;
    /// Whether there is a rename function.
    bool isEditable() const override;
    /// Renames what the row shows to the text without the blanks around it; refuses an empty one, and a row whose zone
    /// or variable is gone. The new name comes back by the kernel's event.
    bool setEditedItem(std::string const& text, int index) const override;

protected:
    /// Reads everything anew and tells what changed.
    void resetListModelState() const;

private:
    void readAnew() const override;
    void stateChanged(toolbox::StateChangeEventInterface const& event) override;

    bool concerns(toolbox::StateChangeEventInterface const& event) const;
    bool leavesNames(toolbox::StateChangeEventInterface const& event) const;
    bool isRenamingOfShown(toolbox::StateChangeEventInterface const& event) const;
    void readNames(toolbox::Set const& numbers) const;
    toolbox::Set::Members currentNumbers(long long frame) const;
    void read(long long frame, toolbox::Set::Members&& numbers) const;

    Source const m_source;
    NumberOfID const m_numberOfID;
    Name const m_name;
    IDOf const m_idOf;
    StateChange_e const m_stateChange;
    Rename const m_rename;
    mutable bool m_namesMayDiffer = false; // at the next reading, although the numbers are the same
    mutable long long m_frame = 0;         // the frame that was read last
    mutable std::vector<long long> m_ids;  // of each row; only editable lists have them
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
