#include "dialogs/property/TextConversions.h"

#include "platform/exception/ExceptionBase.h"

#include <boost/lexical_cast.hpp>

namespace veldraw {

std::string wholeNumberToText(long long number)
{
    try {
        return boost::lexical_cast<std::string>(number);
    } catch (boost::bad_lexical_cast const&) {
        throw ExceptionBase();
    }
}

long long textToWholeNumber(std::string const& text)
{
    try {
        return boost::lexical_cast<long long>(text);
    } catch (boost::bad_lexical_cast const&) {
        throw ExceptionBase();
    }
}

} // namespace veldraw
