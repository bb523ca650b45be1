#include "app/handover/Utf8.h"

#include <QTextCodec>

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

std::string madeByQt(std::string const& text)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(text.data(), static_cast<int>(text.size()), &state);
    bool const isUtf8 = state.invalidChars == 0 && state.remainingChars == 0;
    return isUtf8 ? text : QString::fromLatin1(text.data(), static_cast<int>(text.size())).toStdString();
}

} // namespace

TEST(Utf8, IsWhatItsDefinitionSays)
{
    for (char const* good :
         {"", "plain", "\xc3\xb6", "\xe0\xa0\x80", "\xed\x9f\xbf", "\xf0\x90\x80\x80", "\xf4\x8f\xbf\xbf"})
        EXPECT_TRUE(app::isUtf8(good)) << good;
    for (char const* bad : {"\x80", "\xc3", "\xc0\x80", "\xe0\x9f\xbf", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf",
                            "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xe2\x82", "a\xc3z"})
        EXPECT_FALSE(app::isUtf8(bad)) << bad;
}

TEST(Utf8, IsMadeOfAnythingElseAsOfLatin1)
{
    EXPECT_EQ(app::madeUtf8("Gr\xf6\xdf"
                            "e"),
              "Größe");
    EXPECT_EQ(app::madeUtf8("Größe"), "Größe");
}

TEST(Utf8, IsCutBetweenCharacters)
{
    EXPECT_EQ(app::madeUtf8("Größe", 5), "Grö");
    EXPECT_EQ(app::madeUtf8("Größe", 4), "Grö");
    EXPECT_EQ(app::madeUtf8("Größe", 3), "Gr");
    EXPECT_EQ(app::madeUtf8("Größe", 7), "Größe");
    EXPECT_EQ(app::madeUtf8("\xf6\xf6", 3), "ö");
    EXPECT_EQ(app::madeUtf8("Größe", 0), "");
}

// Qt knows UTF-8 without our help.
TEST(Utf8, IsMadeAsQtMakesItOfAnyBytes)
{
    std::mt19937 random(20261122);
    for (int n = 0; n < 20000; ++n) {
        std::string text;
        for (auto left = random() % 6; left > 0; --left)
            text += static_cast<char>(random() % 3 == 0 ? 0x80 + random() % 0x80 : 0xc0 + random() % 0x40);
        ASSERT_EQ(app::madeUtf8(text), madeByQt(text)) << "seed 20261122, text " << n;
    }
}

} // namespace veldraw::tests
