#pragma once

#include "kernel/data/ValueLoader.h"

#include <functional>

namespace veldraw::app {

/// Brings the values of another loader in the order that the zone wants them.
class ArrangedLoader : public kernel::ValueLoader
{
public:
    using Arrange = std::function<std::shared_ptr<kernel::Buffer>(kernel::Buffer const&)>;

    ArrangedLoader(std::shared_ptr<kernel::ValueLoader> source, Arrange arrange)
        : m_source(std::move(source))
        , m_arrange(std::move(arrange))
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override
    {
        return m_arrange(*m_source->load(progress));
    }

    kernel::ValueRange range() const override { return m_source->range(); }

private:
    std::shared_ptr<kernel::ValueLoader> m_source;
    Arrange m_arrange;
};

} // namespace veldraw::app
