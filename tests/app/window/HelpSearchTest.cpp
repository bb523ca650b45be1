#include "app/window/HelpSearch.h"

#include "tests/app/support/WindowTest.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HelpSearchTest : public WindowTest
{
protected:
    HelpSearchTest()
    {
        page("mirror", "Create Mirror Zone",
             "Adds mirror images of zones. The plane is chosen by <b>radio</b> buttons.");
        page("rotate", "Axial Rotation",
             "Turns zones about an axis; for an image in a mirror see there. Zones, zones, zones.");
        page("index", "Help", "Create Mirror Zone, Axial Rotation, radio");
    }

    void page(char const* name, char const* title, char const* text)
    {
        writeFile(QString::fromLatin1(name) + QStringLiteral(".html"),
                  QStringLiteral("<html><head><title>%1</title></head><body>%2</body></html>")
                      .arg(QString::fromLatin1(title), QString::fromLatin1(text))
                      .toUtf8());
    }

    std::vector<std::string> titles(char const* typed)
    {
        std::vector<std::string> found;
        for (auto const& hit :
             app::HelpSearch({folder.path()}).find(app::HelpSearch::wordsOf(QString::fromUtf8(typed))))
            found.push_back(hit.title.toStdString());
        return found;
    }

    QString results(char const* typed) { return app::HelpSearch({folder.path()}).resultPage(QString::fromUtf8(typed)); }
};

} // namespace

TEST_F(HelpSearchTest, FindsAWordWhateverItsCase)
{
    EXPECT_THAT(titles("RADIO"), ElementsAre("Create Mirror Zone"));
}

TEST_F(HelpSearchTest, WantsAllWords)
{
    EXPECT_THAT(titles("radio axis"), IsEmpty());
    EXPECT_THAT(titles("axis image"), ElementsAre("Axial Rotation"));
}

TEST_F(HelpSearchTest, PutsTitlesFirstAndThenWhereTheWordStandsMostOften)
{
    EXPECT_THAT(titles("mirror"), ElementsAre("Create Mirror Zone", "Axial Rotation"));
    EXPECT_THAT(titles("zones"), ElementsAre("Axial Rotation", "Create Mirror Zone"));
}

TEST_F(HelpSearchTest, DoesNotFindMarkup)
{
    EXPECT_THAT(titles("<b>"), IsEmpty());
    EXPECT_THAT(titles("body"), IsEmpty());
}

TEST_F(HelpSearchTest, FindsNothingForNothing)
{
    EXPECT_THAT(titles("   "), IsEmpty());
}

TEST_F(HelpSearchTest, ShowsTheWordsWhereTheyStand)
{
    EXPECT_TRUE(results("radio").contains(QStringLiteral("chosen by <b>radio</b> buttons.")))
        << results("radio").toStdString();
    EXPECT_TRUE(results("nowhere").contains(QStringLiteral("No topic has all of these words.")));
    EXPECT_TRUE(results("<i>&").contains(QStringLiteral("&lt;i&gt;&amp;")));
}

TEST_F(HelpSearchTest, ShowsAPartOfALongText)
{
    page("long", "Long",
         (std::string(3000, 'x').replace(1500, 8, " needle ").replace(1400, 1, " ").replace(1600, 1, " ")).c_str());
    auto const hits = app::HelpSearch({folder.path()}).find({QStringLiteral("needle")});
    ASSERT_EQ(1u, hits.size());
    EXPECT_TRUE(hits.front().excerpt.contains(QStringLiteral("needle ")));
    EXPECT_LT(hits.front().excerpt.size(), 200);
    EXPECT_TRUE(hits.front().excerpt.startsWith(QString::fromUtf8("…")));
    EXPECT_TRUE(hits.front().excerpt.endsWith(QString::fromUtf8("…")));
}

} // namespace veldraw::tests
