#include "kernel/style/StyleAddress.h"

namespace veldraw::kernel {

std::string textOf(StylePath const& path)
{
    std::string text;
    for (std::string const& name : path) {
        if (!text.empty())
            text += ", ";
        text += name;
    }
    return text;
}

} // namespace veldraw::kernel
