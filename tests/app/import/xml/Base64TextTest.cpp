#include "app/import/xml/Base64Text.h"

#include "tests/app/support/FileHelpers.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr std::int64_t noLimit = std::int64_t{1} << 40;

std::string base64(std::string const& bytes)
{
    return QByteArray::fromStdString(bytes).toBase64().toStdString();
}

std::string someBytes(int count)
{
    std::string bytes;
    for (int n = 0; n < count; ++n)
        bytes += static_cast<char>(n * 37 + n / 256);
    return bytes;
}

std::int64_t bytesBehind(int bytesOfNumber, std::string const& text, std::int64_t most = noLimit)
{
    TemporaryFolder const folder;
    return app::Base64Text(folder.write("a", text), 0).bytesBehind(bytesOfNumber, most, kernel::Progress());
}

} // namespace

TEST(Base64Text, GivesTheBytesThatStandThere)
{
    TemporaryFolder const folder;
    std::string const bytes = someBytes(6002);
    app::Base64Text text(folder.write("a", "xyz \n\t" + base64(bytes) + "</DataArray>"), 3);
    std::string found;
    app::Base64Text::Triplet triplet{};
    for (int count = 3; count == 3;) {
        count = text.next(triplet);
        found.append(triplet.begin(), triplet.begin() + count);
    }
    EXPECT_EQ(found, bytes);
    EXPECT_EQ(text.next(triplet), 0) << "a tag is no text";
}

TEST(Base64Text, CountsWhatStandsBehindTheNumberInFront)
{
    for (int const bytesOfNumber : {4, 8}) {
        for (int count = 0; count < 40; ++count)
            EXPECT_EQ(bytesBehind(bytesOfNumber, base64(someBytes(bytesOfNumber + count)) + "\n<"), count);
    }
}

TEST(Base64Text, CountsAlsoWhereTheNumberIsPaddedByItself)
{
    for (int const bytesOfNumber : {4, 8}) {
        std::string const number = base64(someBytes(bytesOfNumber));
        for (int count = 0; count < 40; ++count)
            EXPECT_EQ(bytesBehind(bytesOfNumber, number + base64(someBytes(count)) + "\n<"), count);
    }
}

TEST(Base64Text, EndsAtALetterThatDoesNotBelongThere)
{
    std::string const text = base64(someBytes(4 + 3000));
    for (std::size_t at = 8; at < text.size(); at += 41) {
        auto const before = static_cast<std::int64_t>(at / 4 * 3) - 4;
        for (char const* wrong : {"!", "\n", " ", "<", "-", "\xe4"})
            EXPECT_EQ(bytesBehind(4, std::string(text).replace(at, 1, wrong)), before) << wrong << " at " << at;
    }
}

TEST(Base64Text, CountsNoFurtherThanItIsAskedTo)
{
    std::string const text = base64(someBytes(4 + 3000));
    EXPECT_GE(bytesBehind(4, text, 100), 100);
    EXPECT_LT(bytesBehind(4, text, 100), 103);
    EXPECT_EQ(bytesBehind(4, text, 3000), 3000);
}

TEST(Base64Text, IsEmptyWhereTheNumberIsNotWhole)
{
    EXPECT_EQ(bytesBehind(4, "YAA"), 0);
    EXPECT_EQ(bytesBehind(4, ""), 0);
    EXPECT_EQ(bytesBehind(8, "YAAAAAAA"), 0);
    EXPECT_EQ(bytesBehind(4, "YAAA!AAA"), 0);
}

} // namespace veldraw::tests
