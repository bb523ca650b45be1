#include "app/handover/ByteWriter.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

TEST(ByteWriter, PutsDownWhatTheReaderTakes)
{
    app::ByteWriter to;
    to.number(std::int64_t{-5});
    to.text("Größe");
    to.flag(true);
    to.texts({"a", ""});
    to.number(0.1);
    app::ByteReader from(to.bytes());
    EXPECT_EQ(from.number<std::int64_t>(), -5);
    EXPECT_EQ(from.name(100), "Größe");
    EXPECT_TRUE(from.flag());
    EXPECT_EQ(from.names(10), (std::vector<std::string>{"a", ""}));
    EXPECT_EQ(from.number<double>(), 0.1);
    EXPECT_NO_THROW(from.expectEnd());
}

TEST(ByteReader, NeverLooksBeyondTheEnd)
{
    app::ByteWriter to;
    to.text("twelve bytes");
    to.number(std::int32_t{7});
    for (std::size_t size = 0; size < to.bytes().size(); ++size) {
        std::string const cut = to.bytes().substr(0, size);
        app::ByteReader from(cut);
        EXPECT_THROW(
            {
                from.text(100);
                from.number<std::int32_t>();
            },
            app::Nonsense)
            << size;
    }
}

TEST(ByteReader, RefusesWhatIsLeft)
{
    app::ByteWriter to;
    to.number(std::int32_t{7});
    app::ByteReader from(to.bytes());
    from.number<std::int16_t>();
    EXPECT_THROW(from.expectEnd(), app::Nonsense);
}

TEST(ByteReader, RefusesTextsThatAreTooLongOrNoNames)
{
    for (std::string const& text : {std::string("abc"), std::string("\xff"), std::string("a\0b", 3)}) {
        app::ByteWriter to;
        to.text(text);
        EXPECT_THROW(app::ByteReader(to.bytes()).name(text == "abc" ? 2 : 3), app::Nonsense);
        EXPECT_EQ(app::ByteReader(to.bytes()).text(3), text);
    }
}

TEST(ByteReader, RefusesCountsThatTheBytesHaveNoRoomFor)
{
    app::ByteWriter to;
    to.number(std::uint64_t{3});
    to.number(std::uint64_t{0});
    to.number(std::uint64_t{0});
    EXPECT_EQ(app::ByteReader(to.bytes()).count(5), 3U);
    EXPECT_THROW(app::ByteReader(to.bytes()).count(6), app::Nonsense);
}

TEST(ByteReader, RefusesWhatIsNeitherYesNorNoAndEnumeratorsThatThereAreNot)
{
    enum class Kind : std::uint8_t
    {
        One,
        Two
    };
    app::ByteWriter to;
    to.number(std::uint8_t{2});
    EXPECT_THROW(app::ByteReader(to.bytes()).flag(), app::Nonsense);
    EXPECT_THROW(app::ByteReader(to.bytes()).enumerator(Kind::Two), app::Nonsense);
}

} // namespace veldraw::tests
