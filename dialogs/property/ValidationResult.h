#pragma once

#include "dialogs/property/DialogsApi.h"

#include <string>

namespace veldraw {

/// A validator's answer: valid until an error text is set.
class VDSDKDIALOGS_DATA_QT_API ValidationResult
{
public:
    ValidationResult();
    ValidationResult(ValidationResult const&) = default;
    ValidationResult& operator=(ValidationResult const&) = default;
    virtual ~ValidationResult();

    /// Makes the result invalid, also with an empty text.
    virtual void setErrorString(std::string const& text);
    virtual bool isValid() const;
    virtual std::string errorString() const;

private:
    bool m_isValid = true;
    std::string m_errorString;
};

} // namespace veldraw
