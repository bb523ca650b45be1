#pragma once

#include "kernel/data/DataSet.h"

#include <memory>
#include <string>

namespace veldraw::python {

/// A zone or a variable as Python holds it: by its identifier, so that it stays the same one when others come and go. It keeps the data set alive.
template <typename Thing>
class ThingHandle
{
public:
    ThingHandle(std::shared_ptr<kernel::DataSet> dataSet, std::shared_ptr<Thing> thing)
        : m_dataSet(std::move(dataSet))
        , m_thing(std::move(thing))
    {
    }

    std::shared_ptr<kernel::DataSet> const& dataSet() const { return m_dataSet; }
    kernel::UniqueId id() const { return m_thing->id; }
    std::string const& name() const { return m_thing->name; }

    /// One-based. @throws Failure when it is not in the data set any more
    int number() const;

    /// The thing itself. @throws Failure as number()
    Thing const& thing() const
    {
        number();
        return *m_thing;
    }

    /// For messages: The zone "Wing".
    std::string description() const;

    bool operator==(ThingHandle const& other) const { return id() == other.id(); }

private:
    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<Thing> m_thing;
};

using ZoneHandle = ThingHandle<kernel::Zone>;
using VariableHandle = ThingHandle<kernel::Variable>;

extern template class ThingHandle<kernel::Zone>;
extern template class ThingHandle<kernel::Variable>;

/// The zones or the variables of a data set, as Python lists them.
template <typename Thing>
struct ThingList
{
    std::shared_ptr<kernel::DataSet> dataSet;

    int count() const;
    ThingHandle<Thing> at(int number) const; ///< one-based. @throws std::out_of_range, which Python has as IndexError

    /// One-based number of the first thing of this name; 0 for none.
    int find(std::string const& name) const;
};

using ZoneList = ThingList<kernel::Zone>;
using VariableList = ThingList<kernel::Variable>;

extern template struct ThingList<kernel::Zone>;
extern template struct ThingList<kernel::Variable>;

} // namespace veldraw::python
