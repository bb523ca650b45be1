#include "dialogs/property/ValidationResult.h"

namespace veldraw {

ValidationResult::ValidationResult() = default;
ValidationResult::~ValidationResult() = default;

void ValidationResult::setErrorString(std::string const& text)
{
    m_isValid = false;
    m_errorString = text;
}

bool ValidationResult::isValid() const
{
    return m_isValid;
}

std::string ValidationResult::errorString() const
{
    return m_errorString;
}

} // namespace veldraw
