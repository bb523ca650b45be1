// The exceptions of the platform, of which each but the first adds a name alone.
#include "platform/exception/ExceptionBase.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InterruptedException.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"

namespace veldraw {

ExceptionBase::ExceptionBase()
    : m_reportable(true)
{
}

ExceptionBase::ExceptionBase(std::string const& message, bool reportable)
    : m_message(message)
    , m_reportable(reportable)
{
}

ExceptionBase::ExceptionBase(ExceptionBase const& other) = default;

ExceptionBase& ExceptionBase::operator=(ExceptionBase const& other) = default;

ExceptionBase::~ExceptionBase() noexcept = default;

char const* ExceptionBase::what() const noexcept
{
    return m_message.c_str();
}

std::string ExceptionBase::message() const
{
    return m_message;
}

bool ExceptionBase::isReportable() const noexcept
{
    return m_reportable;
}

IOException::IOException(std::string const& message)
    : ExceptionBase(message)
{
}

IOException::~IOException() noexcept = default;

InvalidArgumentException::InvalidArgumentException(std::string const& message)
    : ExceptionBase(message)
{
}

InvalidArgumentException::~InvalidArgumentException() noexcept = default;

InvalidPropertyValueException::InvalidPropertyValueException(std::string const& message)
    : ExceptionBase(message)
{
}

InvalidPropertyValueException::~InvalidPropertyValueException() noexcept = default;

InterruptedException::InterruptedException() = default;

InterruptedException::~InterruptedException() noexcept = default;

} // namespace veldraw
