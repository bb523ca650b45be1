#pragma once

#include "platform/vdtoolbox/StateChangeEventInterface.h"

#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// A state change of any kind, without a kernel.
class FakeEvent : public toolbox::StateChangeEventInterface
{
public:
    explicit FakeEvent(int kind, std::vector<std::string> styleParams = {})
        : m_kind(kind)
        , m_styleParams(std::move(styleParams))
    {
    }

    int kind() const override { return m_kind; }
    bool hasStyleParam() const override { return !m_styleParams.empty(); }
    bool hasStyleParam(int position) const override
    {
        return position >= 1 && position <= static_cast<int>(m_styleParams.size());
    }
    std::string styleParam(int position) const override
    {
        return m_styleParams.at(static_cast<std::size_t>(position - 1));
    }
    bool hasZones() const override { return false; }
    bool hasVars() const override { return false; }
    toolbox::Set vars() const override { return {}; }
    toolbox::Set zones() const override { return {}; }

private:
    int m_kind;
    std::vector<std::string> m_styleParams;
};

} // namespace veldraw::tests
