#pragma once

#include "dialogs/datasetinfo/NamedThings.h"
#include "dialogs/datasetinfo/ShownName.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <functional>

namespace veldraw::sdk::ui::propertymanager {

/// The name of the selected zone or variable, or a title, as a field edits it: a set renames. What is typed is for whatever the field showed when
/// it was typed, which `beginEdit()` notes, even if another one has been selected since.
///
/// A refusal has been told to the user before it is thrown, as an exception without a text.
class EditedName : public PropertyAbstract<std::string>
{
public:
    /// Renames what has a unique identifier and tells the user of a refusal. @return whether it is called so now
    using Rename = std::function<bool(long long id, std::string const& name)>;
    using NameOf = std::function<std::string(long long id)>;

    /// @param shown the name of what is selected
    EditedName(ShownName shown, Rename rename, NameOf nameOf);
    EditedName(ShownName shown, NamedThings things);
    ~EditedName() override;

    using PropertyAbstract<std::string>::operator=;

    /// From now on edits are for what is selected now.
    void beginEdit();
    /// Whether edits are for something else than what is selected now.
    bool isForAnother() const;
    /// Whether a text that the field has for it now is the user's, who has not finished it: no set has come since the edit began.
    bool isUnfinished(std::string const& typed) const;
    /// Renames what edits are for. It has to begin anew afterwards.
    /// @return whether it was renamed
    bool finishEdit(std::string const& name);

protected:
    void storeValue(std::string const& newValue) override;
    bool isEqual(std::string const& other) const override;

private:
    std::string retrieveValue() const override;
    void tell() const;

    ShownName const m_shown;
    Rename const m_rename;
    NameOf const m_nameOf;
    long long m_editedID = 0; // 0: no edit has begun
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
