#include "platform/vdtoolbox/AuxData.h"

#include "host/AuxDataOwner.h"
#include "kernel/frames/Session.h"
#include "kernel/undo/Change.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace veldraw::toolbox {

using host::AuxDataOwner;
using kernel::AuxiliaryData;

namespace {

std::optional<AuxiliaryData::Item> itemCalled(std::string const& name, AuxiliaryData const& data)
{
    int const number = data.indexOf(name);
    return number == 0 ? std::nullopt : std::optional<AuxiliaryData::Item>(data.item(number));
}

void tell(StateChange_e kind)
{
    kernel::StateChangeEvent event;
    event.kind = kind;
    kernel::Session::instance().events().emitEvent(event);
}

/// Puts an item in place, or takes it away.
void restoreQuietly(AuxiliaryData& data, std::string const& name, std::optional<AuxiliaryData::Item> const& item)
{
    if (item)
        data.set(item->name, item->value, item->retain);
    else
        data.remove(name);
}

/// The same, and tells the listeners.
void restore(AuxDataOwner const& owner, std::string const& name, std::optional<AuxiliaryData::Item> const& item)
{
    AuxiliaryData* const data = owner.data();
    if (!data)
        return;
    bool const wasThere = data->indexOf(name) != 0;
    restoreQuietly(*data, name, item);
    tell(!item ? StateChange_AuxDataDeleted : wasThere ? StateChange_AuxDataAltered : StateChange_AuxDataAdded);
}

/// An item that comes, goes or gets another value.
class ItemChange : public kernel::Change
{
public:
    using Item = std::optional<AuxiliaryData::Item>;

    ItemChange(AuxDataOwner const& owner, std::string name, Item before, Item after)
        : m_owner(owner)
        , m_name(std::move(name))
        , m_before(std::move(before))
        , m_after(std::move(after))
    {
    }

    void apply() noexcept override { restore(m_owner, m_name, m_after); }
    void revert() noexcept override { restore(m_owner, m_name, m_before); }

    kernel::HeldMemory held() const noexcept override
    {
        std::size_t const texts = m_name.size() + sizeOf(m_before) + sizeOf(m_after);
        return {0, static_cast<std::int64_t>(texts)};
    }

private:
    static std::size_t sizeOf(Item const& item) { return item ? item->name.size() + item->value.size() : 0; }

    AuxDataOwner const m_owner;
    std::string const m_name;
    Item const m_before;
    Item const m_after;
};

std::optional<AuxiliaryData::Item> itemAt(AuxDataLocation_e location, int object, int n)
{
    AuxiliaryData const* const data = AuxDataOwner(location, object).data();
    if (!data || n < 1 || n > data->size())
        return std::nullopt;
    return data->item(n);
}

} // namespace

AuxData::AuxData(AuxDataLocation_e location, int object)
    : m_location(location)
    , m_object(object)
{
}

bool AuxData::isValid() const
{
    return AuxDataOwner(m_location, m_object).data() != nullptr;
}

int AuxData::size() const
{
    AuxiliaryData const* const data = AuxDataOwner(m_location, m_object).data();
    return data ? data->size() : 0;
}

std::string AuxData::name(int n) const
{
    auto const item = itemAt(m_location, m_object, n);
    return item ? item->name : std::string();
}

std::string AuxData::value(int n) const
{
    auto const item = itemAt(m_location, m_object, n);
    return item ? item->value : std::string();
}

bool AuxData::boolValue(int n) const
{
    std::string text = value(n);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text == "TRUE" || text == "YES" || text == "ON" || text == "1";
}

int AuxData::indexOf(std::string const& name) const
{
    AuxiliaryData const* const data = AuxDataOwner(m_location, m_object).data();
    return data ? data->indexOf(name) : 0;
}

bool AuxData::set(std::string const& name, bool value, bool retain) const
{
    return setText(name, value ? "TRUE" : "FALSE", retain);
}

bool AuxData::setText(std::string const& name, std::string const& value, bool retain) const
{
    AuxDataOwner const owner(m_location, m_object);
    AuxiliaryData* const data = owner.data();
    if (!data)
        return false;
    auto const before = itemCalled(name, *data);
    if (!data->set(name, value, retain))
        return false;
    auto const after = itemCalled(name, *data);
    restoreQuietly(*data, name, before);
    kernel::Session::instance().history().perform("Auxiliary Data",
                                                  std::make_shared<ItemChange>(owner, name, before, after));
    return true;
}

} // namespace veldraw::toolbox
