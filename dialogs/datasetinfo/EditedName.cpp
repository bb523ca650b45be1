#include "dialogs/datasetinfo/EditedName.h"

#include "platform/exception/InvalidPropertyValueException.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

EditedName::EditedName(ShownName shown, NamedThings things)
    : EditedName(
          std::move(shown), [things](long long id, std::string const& name) { return things.rename(id, name); },
          [things](long long id) { return things.name(id); })
{
}

EditedName::EditedName(ShownName shown, Rename rename, NameOf nameOf)
    : m_shown(std::move(shown))
    , m_rename(std::move(rename))
    , m_nameOf(std::move(nameOf))
{
    m_connections.add(m_shown.text->connectValueChanged([this](std::string const&) { tell(); }));
    m_connections.add(m_shown.id->connectValueChanged([this](long long) { tell(); }));
}

EditedName::~EditedName() = default;

void EditedName::beginEdit()
{
    m_editedID = m_shown.id->value();
}

bool EditedName::isForAnother() const
{
    return m_editedID != 0 && m_editedID != m_shown.id->value();
}

bool EditedName::isUnfinished(std::string const& typed) const
{
    return m_editedID != 0 && typed != value();
}

bool EditedName::finishEdit(std::string const& name)
{
    long long const id = std::exchange(m_editedID, 0);
    if (!m_rename(id, name))
        return false;
    // Blanks around it are gone, and what is shown follows the kernel only at idle.
    if (id == m_shown.id->value())
        m_shown.text->setValue(m_nameOf(id));
    return true;
}

void EditedName::storeValue(std::string const& newValue)
{
    if (!finishEdit(newValue))
        throw InvalidPropertyValueException("");
}

// The name of what is selected says nothing of a name for another one.
bool EditedName::isEqual(std::string const& other) const
{
    return !isForAnother() && other == retrieveValue();
}

std::string EditedName::retrieveValue() const
{
    return m_shown.text->value();
}

void EditedName::tell() const
{
    signalValueChanged(value());
}

} // namespace veldraw::sdk::ui::propertymanager
