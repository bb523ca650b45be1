#pragma once

#include "platform/PlatformApi.h"

#include <exception>
#include <string>

namespace veldraw {

/// Root of the exceptions of the dialogs and the platform. They are thrown by value and caught by const reference.
class VELDRAW_PLATFORM_API ExceptionBase : public std::exception
{
public:
    /// An exception without a text.
    ExceptionBase();

    /// @param message UTF-8; an empty one is not to be told to anybody
    /// @param reportable whether the text may be shown to the user
    ExceptionBase(std::string const& message, bool reportable = true);

    ExceptionBase(ExceptionBase const& other);
    ExceptionBase& operator=(ExceptionBase const& other);
    ~ExceptionBase() noexcept override;

    /// The text, valid as long as the exception.
    char const* what() const noexcept override;

    /// The text as a value.
    std::string message() const;

    /// Whether the text may be shown to the user.
    bool isReportable() const noexcept;

private:
    std::string m_message;
    bool m_reportable;
};

} // namespace veldraw
