#pragma once

#include "kernel/storage/ShareGroup.h"

#include <cstddef>
#include <memory>

namespace veldraw::kernel {

/// One variable in one zone: where its values sit and the group that stores them.
///
/// A passive field has a type and a location but no values; it reads as 0 everywhere. Any other field is on a share group,
/// which has no buffer as long as the values are not loaded:
///
///     if (!field.isPassive() && field.isLoaded()) {
///         double const first = field.group()->buffer()->value(0);
///     }
///
/// A copy of a field is another field on the same group, and counts in shareCount(). So keep no copy of a field outside of a
/// zone; to keep values alive, hold the buffer.
///
/// Cell-centred values of an ordered zone are addressed with nodal strides: the value of cell (i, j, k), zero-based, is
/// at i + j * I + k * I * J with the zone's point dimensions I, J, K; a dimension of 1 has one layer of cells. The
/// last slots of a row or layer belong to no cell and are never read. A finite-element zone has one cell-centred value a cell.
class Field
{
public:
    /// A passive field.
    explicit Field(FieldDataType_e type = FieldDataType_Float, ValueLocation_e location = ValueLocation_Nodal);

    /// A field with values.
    Field(std::shared_ptr<ShareGroup> group, ValueLocation_e location);

    FieldDataType_e type() const { return m_group ? m_group->type() : m_type; }
    ValueLocation_e location() const { return m_location; }
    bool isPassive() const { return !m_group; }

    /// Whether there are values to read: true for a passive field, which reads as 0.
    bool isLoaded() const { return !m_group || m_group->isLoaded(); }

    /// Null for a passive field.
    std::shared_ptr<ShareGroup> const& group() const { return m_group; }

    /// Number of fields, this one included, on the same storage; 1 for a passive field.
    int shareCount() const { return m_group ? static_cast<int>(m_group.use_count()) : 1; }

private:
    std::shared_ptr<ShareGroup> m_group;
    FieldDataType_e m_type;
    ValueLocation_e m_location;
};

/// A field that an operation has made for a zone.
struct NewField
{
    std::size_t position; ///< zero-based among the zone's fields
    Field field;
};

} // namespace veldraw::kernel
