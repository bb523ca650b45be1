#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/DataSet.h"
#include "platform/vdtoolbox/Set.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>

namespace veldraw::host {

/// What the active frame draws. With very many zones each of these answers is a walk through all of them, so it is kept until the kernel
/// tells of a change.
class ActiveZones
{
public:
    /// Of the active frame as it is now. The reference holds until the next call.
    static ActiveZones& now();

    toolbox::Set const& lineMaps();     ///< active ones whose zone is enabled
    toolbox::Set const& lineMapZones(); ///< of these line maps
    toolbox::Set const& fieldMaps();    ///< with an enabled zone
    toolbox::Set const& zones();        ///< those of the frame's plot type
    toolbox::Set const& enabledZones(); ///< of the frame's data set

    /// Of a variable over zones(). Never loads.
    kernel::JoinedRange range(int variable);

private:
    struct Moment
    {
        std::int64_t events = -1;
        kernel::UniqueId frame = 0;
        kernel::UniqueId dataSet = 0;
    };

    void findLineMaps();
    kernel::JoinedRange const& rangeOfSome(int variable);

    Moment m_moment;
    std::optional<toolbox::Set> m_lineMaps;
    std::optional<toolbox::Set> m_lineMapZones;
    std::optional<toolbox::Set> m_fieldMaps;
    std::optional<toolbox::Set> m_zones;
    std::optional<toolbox::Set> m_enabledZones;
    std::map<int, kernel::JoinedRange> m_ranges; // of zones() that are not all
};

} // namespace veldraw::host
