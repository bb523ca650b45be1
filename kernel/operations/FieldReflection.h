#pragma once

#include "kernel/base/NumberSet.h"
#include "kernel/operations/FieldTransformation.h"

#include <map>

namespace veldraw::kernel {

/// Changes the sign of variables of zones: of a coordinate and of the component of the vector along it. Passive fields
/// stay passive.
class FieldReflection : public FieldTransformation
{
public:
    /// @param variables one-based numbers that exist
    explicit FieldReflection(NumberSet variables);

    std::vector<NewField> prepare(Zone const& zone) override;
    void compute(Progress& progress) const override;
    std::int64_t work() const override { return m_work; }
    std::int64_t bytes() const override { return m_bytes; }

private:
    struct Result
    {
        std::shared_ptr<Buffer const> source;
        std::shared_ptr<Buffer> target;
        std::shared_ptr<ShareGroup> group;
    };

    std::shared_ptr<ShareGroup> resultOf(ShareGroup const& source);

    NumberSet m_variables;
    std::map<ShareGroup const*, Result> m_results;
    std::int64_t m_work = 0;
    std::int64_t m_bytes = 0;
};

} // namespace veldraw::kernel
