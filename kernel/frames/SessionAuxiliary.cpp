// Auxiliary data of whatever has some.
#include "kernel/frames/AuxiliaryEdit.h"
#include "kernel/frames/SessionGuard.h"

namespace veldraw::kernel {

bool Session::setAuxiliaryItem(AuxDataLocation_e location, int object, std::string const& name,
                               std::string const& value, bool retain)
{
    return guarded(*this, [&] {
        AuxiliaryOwner const owner(*this, location, object);
        AuxiliaryData const* const data = owner.data();
        if (data == nullptr) {
            return refuse("There is nothing that could have the auxiliary data.");
        }
        int const number = data->indexOf(name);
        AuxiliaryData::Item const& before = data->item(number);
        if (number != 0 && before.name == name && before.value == value && before.retain == retain) {
            return true;
        }
        AuxiliaryData after = *data;
        if (!after.set(name, value, retain)) {
            return refuse("The name must begin with a letter; letters, digits, \"_\" and \".\" may follow.");
        }
        StateChange_e const kind = number == 0 ? StateChange_AuxDataAdded : StateChange_AuxDataAltered;
        m_history.perform("Auxiliary Data", std::make_shared<AuxiliaryEdit>(m_events, owner, std::move(after), kind));
        return true;
    });
}

} // namespace veldraw::kernel
