#pragma once

#include "kernel/compute/RotateValues.h"
#include "kernel/operations/FieldTransformation.h"
#include "kernel/operations/SpatialVariables.h"

#include <map>
#include <utility>

namespace veldraw::kernel {

/// Rotates the coordinates of zones and their vectors.
///
/// A passive component counts as 0. It stays passive if the rotation leaves it 0, and gets values if not. A zone whose
/// coordinates are all passive keeps them as they are; so does a zone whose vector is passive.
class FieldRotation : public FieldTransformation
{
public:
    /// @param variables that exist, all different
    FieldRotation(SpatialVariables const& variables, Rotation const& rotation);

    std::vector<NewField> prepare(Zone const& zone) override;
    void compute(Progress& progress) const override;
    std::int64_t work() const override { return m_work; }
    std::int64_t bytes() const override { return m_bytes; }

private:
    struct Source;
    using Sources = std::array<Source, 3>;
    using Results = std::array<std::shared_ptr<ShareGroup>, 3>;

    /// Whether it is of a vector, and the storage of its components.
    using Key = std::pair<bool, std::array<ShareGroup const*, 3>>;

    struct Task
    {
        Rotation const* rotation;
        ComponentBuffers buffers;
    };

    void prepareComponents(Zone const& zone, bool isVector, std::vector<NewField>& fields);
    Results resultsOf(Sources const& sources, bool isVector, std::int64_t count);
    void addTask(Sources const& sources, Rotation const& rotation, std::int64_t count, Results& results);
    static bool staysZero(Rotation const& rotation, std::size_t row, Sources const& sources);

    SpatialVariables m_variables;
    Rotation m_ofPoints;
    Rotation m_ofVectors;
    std::map<Key, Results> m_results; ///< of components that have values
    std::vector<Task> m_tasks;
    std::int64_t m_work = 0;
    std::int64_t m_bytes = 0;
};

} // namespace veldraw::kernel
