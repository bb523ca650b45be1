#pragma once

#include "dialogs/property/PropertyAbstract.h"

#include <memory>
#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The title of the active frame's data set, UTF-8; without a data set it is the last one there was.
///
/// It is told when another title is there, and when it is that of another data set: what a user was typing over the title of one data
/// set is not meant for the next (see `EditedTitle`).
class DataSetTitleProperty : public PropertyAbstract<std::string>
{
public:
    DataSetTitleProperty();
    ~DataSetTitleProperty() override;

    /// Unique identifier of the data set that has the title, also where the active frame has none; 0 if there has been none.
    long long dataSet() const;

    using PropertyAbstract<std::string>::operator=;

protected:
    /// Has the kernel take the title. Where it does not, the property keeps the kernel's.
    void storeValue(std::string const& newValue) override;

private:
    struct Impl;

    std::string retrieveValue() const override;
    void emitValueChangedSignal(std::string const& newValue) const override;

    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::sdk::ui::propertymanager
