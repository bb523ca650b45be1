#pragma once

#include "dialogs/models/ListModelInterface.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The zones or variables of a list, to be renamed by unique identifier: while somebody types a name, numbers may change and another
/// frame may become active, and the name belongs to what it was typed for.
class NamedThings
{
public:
    using List = boost::shared_ptr<dialogs::propertybindings::models::ListModelInterface<int> const>;

    static NamedThings zones(List list);
    static NamedThings variables(List list);

    /// The unique identifier of what has a number in the active data set, 0 if there is none.
    long long idOf(int number) const;

    /// The name that the list has for a thing, empty if it is not in the list.
    std::string name(long long id) const;

    /// The row of the list with the most to read, -1 if it is empty.
    int longestRow() const;

    /// Renames a thing of the list, or of another data set if the list belongs to another frame by now, as one undo step, to the text without
    /// the blanks around it. A refusal is told to the user, also when the thing is in no list any more.
    /// @return whether it was renamed, or is called so already
    bool rename(long long id, std::string const& name) const;

private:
    using NumberOfID = int (*)(long long id);
    using IDOfNumber = long long (*)(long long frame, int number);

    /// What there is to be asked and done by unique identifier.
    struct Kind
    {
        NumberOfID numberOf; // in the active data set
        IDOfNumber idOf;
        bool (*exists)(long long id); // in any data set
        char (*rename)(long long id, char const* name);
        char const* name; // as messages call them
    };

    NamedThings(List list, Kind const& kind);

    /// -1 if it is not in the list.
    int rowOf(long long id) const;
    bool isInAnotherDataSet(long long id) const;
    char renameNow(long long id, std::string const& name) const;

    List m_list;
    Kind m_kind;
};

} // namespace veldraw::sdk::ui::propertymanager
