#pragma once

#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// A state change that no kernel sent: a kind and, for a style change, the path of names.
class FakeStateChange : public toolbox::StateChangeEventInterface
{
public:
    explicit FakeStateChange(int kind, std::vector<std::string> styleNames = {})
        : m_kind(kind)
        , m_styleNames(std::move(styleNames))
    {
    }

    /// Delivers it to everybody who listens to state changes.
    void send() const { sdk::integration::StateChangeEventObservable::getInstance().notify(*this); }

    int kind() const override { return m_kind; }
    bool hasStyleParam() const override { return !m_styleNames.empty(); }
    bool hasStyleParam(int position) const override
    {
        return position >= 1 && position <= static_cast<int>(m_styleNames.size());
    }
    std::string styleParam(int position) const override
    {
        return hasStyleParam(position) ? m_styleNames[static_cast<std::size_t>(position - 1)] : std::string();
    }
    bool hasZones() const override { return false; }
    bool hasVars() const override { return false; }
    toolbox::Set vars() const override { return {}; }
    toolbox::Set zones() const override { return {}; }

private:
    int m_kind;
    std::vector<std::string> m_styleNames;
};

} // namespace veldraw::tests
