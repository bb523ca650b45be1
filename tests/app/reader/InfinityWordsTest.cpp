#include "app/reader/InfinityWords.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// Goes through a text in parts of any size, as a reader does.
std::string shortened(std::string text, std::size_t part)
{
    app::InfinityWords words;
    for (std::size_t at = 0; at < text.size(); at += part)
        words.shorten(text.data() + at, std::min(part, text.size() - at), static_cast<std::int64_t>(at));
    return text;
}

} // namespace

TEST(InfinityWords, AreShortenedInTextsAlone)
{
    EXPECT_EQ(shortened("<DataArray Name=\"Infinity\">Infinity 1\n-Infinity 2 Infinity</DataArray>", 1000),
              "<DataArray Name=\"Infinity\">inf      1\n-inf      2 inf     </DataArray>");
    EXPECT_EQ(shortened("<DataArray Name=\"to Infinity and\">", 1000), "<DataArray Name=\"to Infinity and\">");
    EXPECT_EQ(shortened("ToInfinity Infinityx", 1000), "ToInfinity Infinityx");
}

TEST(InfinityWords, AreLeftAloneInAppendedDataWhereverThePartsEnd)
{
    std::string const text = "1 Infinity 2 <AppendedData encoding=\"raw\">_ Infinity Infinity ";
    std::string const wanted = "1 inf      2 <AppendedData encoding=\"raw\">_ Infinity Infinity ";
    for (std::size_t part = 11; part < 40; ++part)
        EXPECT_EQ(shortened(text, part), wanted) << part;
}

TEST(InfinityWords, AreLeftAloneInAppendedDataThatAreReadAgain)
{
    std::string text = "<AppendedData encoding=\"raw\">_ Infinity ";
    app::InfinityWords words;
    words.shorten(text.data(), text.size(), 0);
    std::string again = " Infinity ";
    words.shorten(again.data(), again.size(), 31);
    EXPECT_EQ(again, " Infinity ");
}

} // namespace veldraw::tests
