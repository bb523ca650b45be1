#pragma once

#include "dialogs/datasetinfo/NamedThings.h"
#include "dialogs/datasetinfo/ShownName.h"
#include "platform/signals/SignalConnectionCollection.h"

namespace veldraw::sdk::ui::propertymanager {

/// The name of the selected zone or variable as a field edits it: a set renames. What is typed is for whatever the field showed when
/// it was typed, which `beginEdit()` notes, even if another one has been selected since.
///
/// A refusal has been told to the user before it is thrown, as an exception without a text.
class EditedName : public PropertyAbstract<std::string>
{
public:
    /// @param shown the name of what is selected
    EditedName(ShownName shown, NamedThings things);
    ~EditedName() override;

    using PropertyAbstract<std::string>::operator=;

    /// From now on edits are for what is selected now.
    void beginEdit();
    /// Whether edits are for something else than what is selected now.
    bool isForAnother() const;
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
    NamedThings const m_things;
    long long m_editedID = 0; // 0: no edit has begun
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
