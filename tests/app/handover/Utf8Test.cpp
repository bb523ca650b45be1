#include "app/handover/Utf8.h"

#include "app/files/PlainText.h"

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

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

// Qt knows UTF-8 without our help.
TEST(Utf8, IsMadeAsQtMakesItOfAnyBytes)
{
    std::mt19937 random(20261122);
    for (int n = 0; n < 20000; ++n) {
        std::string text;
        for (auto left = random() % 6; left > 0; --left)
            text += static_cast<char>(random() % 3 == 0 ? 0x80 + random() % 0x80 : 0xc0 + random() % 0x40);
        ASSERT_EQ(app::madeUtf8(text), app::asUtf8(text)) << "seed 20261122, text " << n;
    }
}

} // namespace veldraw::tests
