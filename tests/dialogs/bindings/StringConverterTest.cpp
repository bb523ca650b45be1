#include "dialogs/bindings/StringConverter.h"

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::intern;

/// What the conversion throws, or "" if it doesn't.
template <typename T>
std::string refusalOf(std::string const& text)
{
    try {
        convertTo<T>(StringConverter(text));
    } catch (InvalidArgumentException const& refusal) {
        return refusal.what();
    }
    return std::string();
}

TEST(StringConverter, GivesATextAsItIs)
{
    std::string const text = std::string(" a\tb\n\xC3\xA4 ") + '\0' + "c";
    EXPECT_EQ(convertTo<std::string>(StringConverter(text)), text);
    EXPECT_EQ(convertTo<std::string>(StringConverter(std::string())), std::string());
}

TEST(StringConverter, ReadsNumbersOfEachType)
{
    EXPECT_EQ(convertTo<double>(StringConverter("-1.25e2")), -125.0);
    EXPECT_EQ(convertTo<double>(StringConverter("0.1")), 0.1);
    EXPECT_EQ(convertTo<float>(StringConverter("0.1")), 0.1f);
    EXPECT_EQ(convertTo<int>(StringConverter("+007")), 7);
    EXPECT_EQ(convertTo<int>(StringConverter("-2147483648")), std::numeric_limits<int>::min());
    EXPECT_EQ(convertTo<long long>(StringConverter("4611686018427387903")), 4611686018427387903LL);
}

TEST(StringConverter, LooksAtNothingBehindTheNumber)
{
    EXPECT_EQ(convertTo<double>(StringConverter("1.5 m")), 1.5);
    EXPECT_EQ(convertTo<double>(StringConverter("1,000")), 1.0);
    EXPECT_EQ(convertTo<int>(StringConverter("12.9")), 12);
    EXPECT_EQ(convertTo<long long>(StringConverter("3x")), 3);
}

TEST(StringConverter, RefusesAWhiteSpaceInFront)
{
    EXPECT_EQ(refusalOf<double>(" 1"), "Cannot convert \" 1\" to double");
    EXPECT_EQ(refusalOf<int>("\t1"), "Cannot convert \"\t1\" to int");
    EXPECT_EQ(refusalOf<long long>("\n1"), "Cannot convert \"\n1\" to __int64");
}

TEST(StringConverter, SaysWhatItCouldNotConvertToWhat)
{
    EXPECT_EQ(refusalOf<double>("abc"), "Cannot convert \"abc\" to double");
    EXPECT_EQ(refusalOf<long long>(""), "Cannot convert \"\" to __int64");
    EXPECT_EQ(refusalOf<int>("-"), "Cannot convert \"-\" to int");
    EXPECT_EQ(refusalOf<float>("."), "Cannot convert \".\" to float");
}

TEST(StringConverter, RefusesNumbersThatTheTypeCannotHold)
{
    EXPECT_EQ(refusalOf<int>("2147483648"), "Cannot convert \"2147483648\" to int");
    EXPECT_EQ(refusalOf<long long>("9223372036854775808"), "Cannot convert \"9223372036854775808\" to __int64");
    EXPECT_EQ(refusalOf<double>("1e400"), "Cannot convert \"1e400\" to double");
    EXPECT_EQ(refusalOf<float>("1e40"), "Cannot convert \"1e40\" to float");
}

TEST(StringConverter, RefusesEveryEnumeration)
{
    EXPECT_EQ(refusalOf<Drift_e>("1"), "Unsupported type for conversion: Drift_e");
    EXPECT_EQ(refusalOf<ValueLocation_e>(""), "Unsupported type for conversion: ValueLocation_e");
}

} // namespace
} // namespace veldraw::tests
