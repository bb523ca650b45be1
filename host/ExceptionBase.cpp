#include "platform/exception/ExceptionBase.h"

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

} // namespace veldraw
