#pragma once

#include "kernel/session/Session.h"

#include <string>

namespace veldraw::tests {

/// Everything that stands in a session, its storage and its history as one text: equal texts, equal states.
std::string stateDigest(kernel::Session const& session);

/// The same for one data set, with the identity of groups and buffers.
std::string stateDigest(kernel::DataSet const& dataSet);

} // namespace veldraw::tests
