#include "platform/exception/IOException.h"
#include "platform/exception/InterruptedException.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>

namespace veldraw::tests {

namespace {

// Inherits the family twice over: virtual inheritance keeps one text.
class BothException : public InvalidArgumentException, public IOException
{
public:
    BothException()
        : ExceptionBase("both")
        , InvalidArgumentException("not used")
        , IOException("not used")
    {
    }
};

template <typename Exception>
std::string textCaughtAsBase(Exception const& exception)
{
    try {
        throw Exception(exception);
    } catch (ExceptionBase const& caught) {
        return caught.message();
    }
}

template <typename Exception>
std::string textCaughtAsStandardException(Exception const& exception)
{
    try {
        throw Exception(exception);
    } catch (std::exception const& caught) {
        return caught.what();
    }
}

} // namespace

TEST(Exceptions, CarryTheirText)
{
    EXPECT_STREQ(ExceptionBase("text").what(), "text");
    EXPECT_EQ(ExceptionBase("text", false).message(), "text");
    EXPECT_TRUE(ExceptionBase("text").isReportable());
    EXPECT_FALSE(ExceptionBase("text", false).isReportable());
    EXPECT_STREQ(ExceptionBase().what(), "");
}

TEST(Exceptions, AreCaughtAsTheirBase)
{
    EXPECT_EQ(textCaughtAsBase(InvalidPropertyValueException("value")), "value");
    EXPECT_EQ(textCaughtAsBase(InvalidArgumentException("argument")), "argument");
    EXPECT_EQ(textCaughtAsBase(IOException("file")), "file");
    EXPECT_EQ(textCaughtAsBase(InterruptedException()), "");
    EXPECT_EQ(textCaughtAsBase(BothException()), "both");
}

TEST(Exceptions, AreCaughtAsStandardExceptions)
{
    EXPECT_EQ(textCaughtAsStandardException(InvalidPropertyValueException("value")), "value");
    EXPECT_EQ(textCaughtAsStandardException(InvalidArgumentException("argument")), "argument");
    EXPECT_EQ(textCaughtAsStandardException(IOException("file")), "file");
    EXPECT_EQ(textCaughtAsStandardException(InterruptedException()), "");
}

TEST(Exceptions, KeepTheirTextWhenCopied)
{
    auto original = std::make_unique<IOException>("a text that is too long for the short-text optimisation");
    IOException const copy(*original);
    original.reset();
    EXPECT_STREQ(copy.what(), "a text that is too long for the short-text optimisation");
}

TEST(Exceptions, AreNotTakenForOneAnother)
{
    EXPECT_FALSE((std::is_base_of<InvalidPropertyValueException, InvalidArgumentException>::value));
    bool caughtAsProperty = false;
    try {
        throw InvalidArgumentException("argument");
    } catch (InvalidPropertyValueException const&) {
        caughtAsProperty = true;
    } catch (InvalidArgumentException const&) {
    }
    EXPECT_FALSE(caughtAsProperty);
}

} // namespace veldraw::tests
