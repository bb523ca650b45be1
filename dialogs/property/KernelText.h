#pragma once

#include "platform/vdsdkbase/VelUtilString.h"

namespace veldraw::sdk::ui::propertymanager {

/// A text that the kernel hands out and takes back:
///
///     KernelText name;
///     VelUtilZoneGetName(zone, name.place());
///     use(name.get());
class KernelText
{
public:
    KernelText() = default;
    ~KernelText() { VelUtilStringDealloc(&m_text); }
    KernelText(KernelText const&) = delete;
    KernelText& operator=(KernelText const&) = delete;

    /// Where the kernel stores the text.
    char** place() { return &m_text; }

    /// UTF-8; null when the kernel has stored none.
    char const* get() const { return m_text; }

private:
    char* m_text = nullptr;
};

} // namespace veldraw::sdk::ui::propertymanager
