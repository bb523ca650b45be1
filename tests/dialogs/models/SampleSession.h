#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/frames/Frame.h"
#include "kernel/session/Session.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// The real kernel with one frame that shows one data set, as the application has it after a file was opened. The kernel
/// is empty again when the sample goes.
class SampleSession
{
public:
    /// A page with an empty frame.
    SampleSession();
    SampleSession(std::vector<std::string> const& zones, std::vector<std::string> const& variables);
    ~SampleSession();
    SampleSession(SampleSession const&) = delete;
    SampleSession& operator=(SampleSession const&) = delete;

    kernel::Session& session() const;
    kernel::DataSet& dataSet() const { return *m_dataSet; }
    std::shared_ptr<kernel::Frame> frame() const { return m_frame; }

    /// A data set with ordered zones of 3 by 2 points, not shown yet.
    static std::shared_ptr<kernel::DataSet> makeDataSet(std::vector<std::string> const& zones,
                                                        std::vector<std::string> const& variables);

    /// "1", "2", ...
    static std::vector<std::string> numberedNames(int count);

private:
    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
};

} // namespace veldraw::tests
