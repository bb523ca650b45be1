#include "app/files/NumberedFiles.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace veldraw::tests {

namespace {

std::string textOf(std::initializer_list<char const*> files)
{
    QStringList paths;
    for (char const* const file : files)
        paths << QString::fromLatin1(file);
    QStringList groups;
    for (app::FileGroup const& group : app::groupsOf(paths))
        groups << group.name + QStringLiteral(": ") + group.paths.join(QLatin1Char(' '));
    return groups.join(QStringLiteral("; ")).toStdString();
}

} // namespace

TEST(NumberedFiles, AreOneSeriesInTheOrderOfTheirNumbers)
{
    EXPECT_EQ(textOf({"/d/wake_10.vtu", "/d/wake_9.vtu", "/d/wake_011.vtu"}),
              "wake: /d/wake_9.vtu /d/wake_10.vtu /d/wake_011.vtu");
    EXPECT_EQ(textOf({"/d/a.1.vtu", "/d/a.2.VTU"}), "a: /d/a.1.vtu /d/a.2.VTU");
    EXPECT_EQ(textOf({"/d/1.vti", "/d/2.vti"}), "1: /d/1.vti /d/2.vti");
    EXPECT_EQ(app::numberOf(QStringLiteral("/7/wake_010.vtu")), 10.0);
    EXPECT_EQ(app::numberOf(QStringLiteral("/7/wake.vtu")), 0.0);
}

TEST(NumberedFiles, AreSeveralSeriesWhereOtherThingsDiffer)
{
    EXPECT_EQ(textOf({"/d/a_1.vtu", "/d/b_1.vtu", "/d/a_2.vtu", "/d/b_2.vtu"}),
              "a: /d/a_1.vtu /d/a_2.vtu; b: /d/b_1.vtu /d/b_2.vtu");
    EXPECT_EQ(textOf({"/d/a_1.vtu", "/e/a_2.vtu"}), "a_1: /d/a_1.vtu; a_2: /e/a_2.vtu") << "of two folders";
    EXPECT_EQ(textOf({"/d/a_1.vtu", "/d/a_2.vtp"}), "a_1: /d/a_1.vtu; a_2: /d/a_2.vtp") << "of two kinds";
}

TEST(NumberedFiles, AreNoSeriesByThemselvesWithoutNumbersOrTwice)
{
    EXPECT_EQ(textOf({"/d/a_1.vtu"}), "a_1: /d/a_1.vtu");
    EXPECT_EQ(textOf({"/d/a.vtu", "/d/b.vtu"}), "a: /d/a.vtu; b: /d/b.vtu");
    EXPECT_EQ(textOf({"/d/a_1.vtu", "/d/a_1.vtu"}), "a_1: /d/a_1.vtu; a_1: /d/a_1.vtu");
    EXPECT_EQ(textOf({"/d/a_1.vtu", "/d/a_01.vtu"}), "a_1: /d/a_1.vtu; a_01: /d/a_01.vtu");
    EXPECT_EQ(textOf({}), "");
}

} // namespace veldraw::tests
