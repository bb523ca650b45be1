#include "app/import/zones/AuxiliaryItems.h"

#include "tests/app/support/AuxiliaryTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using app::AuxiliaryItems;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(AuxiliaryItems, AreThoseOfTheFileWhereNothingIsWrongWithThem)
{
    AuxiliaryItems items;
    items.add("Solver.Version", "2.1 beta");
    items.add("author", "Zo\xC3\xAB\nand others ");
    EXPECT_EQ(textOf(items.data()), "author=Zo\xC3\xAB\nand others |Solver.Version=2.1 beta");
    EXPECT_THAT(items.remarks(), IsEmpty());
}

TEST(AuxiliaryItems, GetNamesThatAuxiliaryDataCanHave)
{
    EXPECT_EQ(app::auxiliaryName("Mach number"), "Mach_number");
    EXPECT_EQ(app::auxiliaryName("2nd run"), "Item_2nd_run");
    EXPECT_EQ(app::auxiliaryName("gr\xC3\xB6\xC3\x9F"
                                 "e"),
              "gr__e")
        << "one _ a letter";
    EXPECT_EQ(app::auxiliaryName(""), "Item_");
    EXPECT_EQ(app::auxiliaryName("_x"), "Item__x");
    EXPECT_EQ(app::auxiliaryName("T.total-3"), "T.total_3");
    for (std::string const& text : {std::string("\0", 1), std::string(100000, 'x'), std::string("\xff\xfe")}) {
        std::string const name = app::auxiliaryName(text);
        EXPECT_TRUE(kernel::AuxiliaryData::isName(name)) << name;
        EXPECT_LE(name.size(), 300U);
    }
}

TEST(AuxiliaryItems, KeepApartWhatComesToTheSameName)
{
    AuxiliaryItems items;
    items.add("a b", "1");
    items.add("a-b", "2");
    items.add("A_B", "3");
    items.add("a b", "4");
    EXPECT_EQ(textOf(items.data()), "a_b=1|a_b_2=2|A_B_3=3|a_b_4=4");
}

TEST(AuxiliaryItems, TakeBytesThatAreNoUtf8AsLatin1)
{
    AuxiliaryItems items;
    items.add("name", "gr\xFC\xDF");
    items.add("cut", "\xC3");
    EXPECT_EQ(textOf(items.data()), "cut=\xC3\x83|name=gr\xC3\xBC\xC3\x9F");
}

TEST(AuxiliaryItems, LeaveOutWhatIsTooLongAndTellIt)
{
    AuxiliaryItems items;
    items.add("longest", std::string(AuxiliaryItems::mostBytes, 'x'));
    items.add("longer", std::string(AuxiliaryItems::mostBytes + 1, 'x'));
    items.add("zero", std::string("a\0b", 3));
    EXPECT_EQ(items.data().size(), 1);
    EXPECT_THAT(items.remarks(), ElementsAre("auxiliary data \"longer\" was left out: it has more than 32768 bytes",
                                             "auxiliary data \"zero\" was left out: it has zero bytes"));
}

TEST(AuxiliaryItems, AreNoMoreThanAThousandAndToldInFewLines)
{
    AuxiliaryItems items;
    for (int n = 0; n < 100000; ++n)
        items.add("same", "v");
    for (int n = 0; n < 1000; ++n)
        items.add(std::string(1000000, 'n'), std::string("\0", 1));
    EXPECT_EQ(items.data().size(), AuxiliaryItems::mostItems);
    EXPECT_EQ(items.data().item(1).name, "same");
    auto const remarks = items.remarks();
    ASSERT_EQ(remarks.size(), 7U);
    EXPECT_EQ(remarks[5], "so were 995 further items of auxiliary data");
    EXPECT_EQ(remarks[6], "99000 items of auxiliary data were left out: at most 1000 are kept");
    for (std::string const& text : remarks)
        EXPECT_LT(text.size(), 200U);
}

TEST(AuxiliaryItems, AddToOthersWhatTheseDoNotHave)
{
    kernel::AuxiliaryData data;
    data.set("a", "1", true);
    kernel::AuxiliaryData more;
    more.set("A", "2", true);
    more.set("b", "3", false);
    app::addMissing(data, more);
    EXPECT_EQ(textOf(data), "a=1|b=3!");
}

} // namespace veldraw::tests
