#pragma once

#include <cstddef>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::app {

/// What a save does after the rename that makes it real: lack of memory there is no refusal any more, but a remark, for which there is memory
/// from the start. To be made before the rename.
class LateWork
{
public:
    /// @param remarks outlives this @throws std::bad_alloc
    explicit LateWork(std::vector<std::string>& remarks)
        : m_remarks(remarks)
        , m_remark(
              "All is saved, but there was not enough memory to make sure that it lasts after a power failure and to "
              "remove what is no longer needed: the next save does that")
    {
        m_remarks.reserve(m_remarks.size() + 1);
    }

    /// @return what the work does; false without memory
    template <typename Work>
    bool run(Work const& work)
    {
        std::size_t const remarksBefore = m_remarks.size();
        try {
            return work();
        } catch (std::bad_alloc const&) {
            m_remarks.resize(remarksBefore);
            m_remarks.push_back(std::move(m_remark));
            return false;
        }
    }

private:
    std::vector<std::string>& m_remarks;
    std::string m_remark;
};

} // namespace veldraw::app
