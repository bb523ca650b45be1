#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/style/StyleRange.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::kernel {

struct Frame;
class Pages;

/// Names from the top level of the style tree down to a value.
using StylePath = std::vector<std::string>;

/// The names with ", " between them.
std::string textOf(StylePath const& path);

/// Where a style value is: its path, its frame if it belongs to one, and its number in collections such as the line maps.
struct StyleAddress
{
    static constexpr long long noOffset = -1;

    StylePath path;
    UniqueId frame = 0;           ///< 0: the active frame
    long long offset1 = noOffset; ///< one-based number in the first collection of the path
    long long offset2 = noOffset; ///< the same for the second; no value of the tree has one at present

    bool hasOffsets() const { return offset1 != noOffset || offset2 != noOffset; }
};

/// The frame that an address is about; null when there is none.
std::shared_ptr<Frame> frameAt(Pages const& pages, StyleAddress const& address);

/// One path of the style tree: where its numbers live, and which of them are allowed.
class StyleItem
{
public:
    explicit StyleItem(StylePath path)
        : m_path(std::move(path))
    {
    }
    virtual ~StyleItem() = default;

    StylePath const& path() const { return m_path; }

    /// @return nothing when there is no such frame or line map
    virtual std::optional<StyleNumber> read(StyleAddress const& address) const = 0;

    /// Why @p number cannot be written at @p address, in one sentence; empty when it can.
    virtual std::string refusal(StyleAddress const& address, StyleNumber const& number) const = 0;

    /// Writes a number that refusal() does not refuse, then sends the event. A number that is set already is neither
    /// written nor told. Refused only for lack of memory; nothing has changed then.
    virtual SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) = 0;

    StyleItem(StyleItem const&) = delete;
    StyleItem& operator=(StyleItem const&) = delete;

protected:
    /// The sentence for a number out of @p range; empty for one within it.
    std::string refusalBy(StyleRange const& range, StyleNumber const& number) const;

private:
    StylePath m_path;
};

} // namespace veldraw::kernel
