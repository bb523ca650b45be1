#include "platform/exception/IOException.h"

namespace veldraw {

IOException::IOException(std::string const& message)
    : ExceptionBase(message)
{
}

IOException::~IOException() noexcept = default;

} // namespace veldraw
