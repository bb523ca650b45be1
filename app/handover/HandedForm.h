#pragma once

#include "app/handover/HandedGrid.h"

#include <string>
#include <string_view>

namespace veldraw::app {

/// The bytes that stand for data on their way to another process.
std::string asBytes(HandedData const& data);

/// The data that bytes stand for, as far as the bytes themselves can tell: no count, name or type is taken unseen, but nothing is
/// held against the shared memory or against each other. That is what checkHandedData() is for.
/// @throws Nonsense
HandedData fromBytes(std::string_view bytes);

} // namespace veldraw::app
