#include "dialogs/models/ZoneVarListModelAbstract.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

std::string trimmed(std::string const& text)
{
    char const* const blanks = " \t\n\v\f\r";
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace

ZoneVarListModelAbstract::ZoneVarListModelAbstract(Source const& source, NumberOfID numberOfID, Name const& name,
                                                   IDOf const& idOf, StateChange_e stateChange, Rename const& rename)
    : m_source(source)
    , m_numberOfID(numberOfID)
    , m_name(name)
    , m_idOf(idOf)
    , m_stateChange(stateChange)
    , m_rename(rename)
{
    resetListModelState();
    integration::StateChangeEventObservable::getInstance().addListener(this);
}

ZoneVarListModelAbstract::~ZoneVarListModelAbstract()
{
    integration::StateChangeEventObservable::getInstance().removeListener(this);
}

std::string ZoneVarListModelAbstract::getStrForEdit(int index) const
{
    return shown().names.at(static_cast<std::size_t>(index));
}

bool ZoneVarListModelAbstract::isEditable() const
{
    return !m_rename.empty();
}

bool ZoneVarListModelAbstract::setEditedItem(std::string const& text, int index) const
{
    std::string const name = trimmed(text);
    if (!isEditable() || name.empty() || index < 0 || index >= shown().size())
        return false;
    int const number = m_numberOfID(m_ids.at(static_cast<std::size_t>(index)));
    return number > 0 && m_rename(m_frame, number, name.c_str()) != 0;
}

void ZoneVarListModelAbstract::resetListModelState() const
{
    m_namesMayDiffer = true;
    readNow();
}

void ZoneVarListModelAbstract::stateChanged(toolbox::StateChangeEventInterface const& event)
{
    if (!concerns(event))
        return;
    if (isRenamingOfShown(event) && !isReadingDue()) {
        readNames(event.hasZones() ? event.zones() : event.vars());
        return;
    }
    // An edit of values in a data set of many zones must not cost the reading of all their names.
    m_namesMayDiffer = m_namesMayDiffer || !leavesNames(event);
    sourceChanged();
}

void ZoneVarListModelAbstract::readAnew() const
{
    long long const frame = propertymanager::currentFrameID();
    toolbox::Set::Members numbers = currentNumbers(frame);
    if (!m_namesMayDiffer && frame == m_frame && numbers == shown().numbers)
        return;
    read(frame, std::move(numbers));
}

// No list goes by the names of what it does not show.
bool ZoneVarListModelAbstract::concerns(toolbox::StateChangeEventInterface const& event) const
{
    if (event.kind() == StateChange_ZonesRenamed || event.kind() == StateChange_VariablesRenamed)
        return event.kind() == m_stateChange;
    return event.kind() == m_stateChange || common::isDataRelatedStateChange(event) ||
           common::isNewActiveFrameStateChange(event) || common::isPlotTypeStateChange(event);
}

bool ZoneVarListModelAbstract::leavesNames(toolbox::StateChangeEventInterface const& event) const
{
    switch (event.kind()) {
    case StateChange_ValuesAltered:
    case StateChange_VariablesLoaded:
    case StateChange_SharingChanged:
    case StateChange_ZoneMetricsLoaded:
        return event.kind() != m_stateChange;
    default:
        return false;
    }
}

// A new name brings nothing into a list and nothing out of it.
bool ZoneVarListModelAbstract::isRenamingOfShown(toolbox::StateChangeEventInterface const& event) const
{
    bool const isRenaming = event.kind() == StateChange_ZonesRenamed
                                ? event.hasZones()
                                : event.kind() == StateChange_VariablesRenamed && event.hasVars();
    return isRenaming && event.kind() == m_stateChange && propertymanager::currentFrameID() == m_frame;
}

void ZoneVarListModelAbstract::readNames(toolbox::Set const& numbers) const
{
    // A listener may release this list, or change what it shows.
    boost::shared_ptr<NamedNumbersListModelAbstract const> const aliveWhileItTells = weak_from_this().lock();
    for (int const number : numbers.members()) {
        std::vector<int> const& shownNumbers = shown().numbers;
        auto const found = std::lower_bound(shownNumbers.begin(), shownNumbers.end(), number);
        if (found != shownNumbers.end() && *found == number)
            showName(static_cast<int>(found - shownNumbers.begin()), m_name(m_frame, number));
    }
}

toolbox::Set::Members ZoneVarListModelAbstract::currentNumbers(long long frame) const
{
    return frame == 0 ? toolbox::Set::Members() : m_source(frame).members();
}

void ZoneVarListModelAbstract::read(long long frame, toolbox::Set::Members&& numbers) const
{
    NamedNumbers snapshot;
    std::vector<long long> ids;
    snapshot.names.reserve(numbers.size());
    for (int const number : numbers) {
        snapshot.names.push_back(m_name(frame, number));
        if (isEditable())
            ids.push_back(m_idOf(frame, number));
    }
    snapshot.numbers = std::move(numbers);
    m_namesMayDiffer = false;
    m_frame = frame;
    m_ids = std::move(ids);
    show(std::move(snapshot));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
