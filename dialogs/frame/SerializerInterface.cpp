#include "dialogs/frame/SerializerInterface.h"

namespace veldraw::common {

SerializerInterface::~SerializerInterface() = default;

} // namespace veldraw::common
