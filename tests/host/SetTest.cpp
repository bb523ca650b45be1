#include "platform/vdtoolbox/Set.h"

#include "kernel/base/NumberSet.h"

#include <gmock/gmock.h>
#include <limits>
#include <set>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using toolbox::Set;

TEST(Set, StartsEmpty)
{
    Set const set;
    EXPECT_TRUE(set.isEmpty());
    EXPECT_EQ(set.size(), 0);
    EXPECT_THAT(set.members(), IsEmpty());
}

TEST(Set, IsMadeOfOneNumber)
{
    Set const set = 7;
    EXPECT_THAT(set.members(), ElementsAre(7));
    EXPECT_TRUE(set.isMember(7));
    EXPECT_FALSE(set.isMember(6));
    EXPECT_FALSE(set.isEmpty());
    EXPECT_EQ(set.size(), 1);
}

TEST(Set, WalksInAscendingOrder)
{
    Set set(std::set<int>{9, 2});
    set.add(5);
    set.add(1);
    set.add(5);
    EXPECT_THAT(set.members(), ElementsAre(1, 2, 5, 9));
}

TEST(Set, IsCopiedDeep)
{
    Set original(std::set<int>{1, 2});
    Set copy(original);
    copy.add(3);
    original.remove(1);
    EXPECT_THAT(original.members(), ElementsAre(2));
    EXPECT_THAT(copy.members(), ElementsAre(1, 2, 3));
    EXPECT_NE(original.getRef(), copy.getRef());
}

TEST(Set, SharesItsNumbersWithACopyUntilOneOfThemChanges)
{
    Set const original(std::set<int>{1, 2});
    for (auto const change : {+[](Set& set) { set.add(3); }, +[](Set& set) { set.remove(1); },
                              +[](Set& set) { set.add(Set(5)); }, +[](Set& set) { set.getRef()->members.insert(9); }}) {
        Set copy = original;
        Set const other = copy;
        Set assigned;
        assigned = copy;
        change(copy);
        EXPECT_NE(copy, original);
        EXPECT_THAT(original.members(), ElementsAre(1, 2));
        EXPECT_EQ(other, original);
        EXPECT_EQ(assigned, original);
    }
}

TEST(Set, SharesNothingWithACopyOnceItsHandleWasAskedFor)
{
    Set original(std::set<int>{1, 2});
    Set_s* const handle = original.getRef();
    Set const copy = original;
    Set assigned;
    assigned = original;
    handle->members.insert(3);
    EXPECT_THAT(original.members(), ElementsAre(1, 2, 3));
    EXPECT_THAT(copy.members(), ElementsAre(1, 2));
    EXPECT_THAT(assigned.members(), ElementsAre(1, 2));
    original.add(4);
    EXPECT_EQ(original.getRef(), handle);
}

TEST(Set, CanBeAddedToItself)
{
    Set set(std::set<int>{1, 2});
    Set const copy = set;
    set.add(set);
    set.add(copy);
    EXPECT_THAT(set.members(), ElementsAre(1, 2));
}

TEST(Set, KeepsItsHandleWhenItIsAssigned)
{
    Set set(4);
    Set_s* const handle = set.getRef();
    set = Set(std::set<int>{1, 2});
    EXPECT_EQ(set.getRef(), handle);
    EXPECT_THAT(set.members(), ElementsAre(1, 2));
}

TEST(Set, SurvivesItsOwnAssignment)
{
    Set set(std::set<int>{1, 2});
    Set const& same = set;
    set = same;
    EXPECT_THAT(set.members(), ElementsAre(1, 2));
}

TEST(Set, TakesOwnershipOfAKernelHandle)
{
    Set const set = Set::Take(new Set_s{{3, 4}});
    EXPECT_THAT(set.members(), ElementsAre(3, 4));
}

TEST(Set, TakesANullHandleAsAnEmptySet)
{
    Set const set = Set::Take(nullptr);
    EXPECT_TRUE(set.isEmpty());
    EXPECT_NE(set.getRef(), nullptr);
}

TEST(Set, ShowsWhatTheKernelFillsInThroughItsHandle)
{
    Set set;
    set.getRef()->members = {8, 6};
    EXPECT_THAT(set.members(), ElementsAre(6, 8));
}

TEST(Set, TakesInAnotherSet)
{
    Set set(std::set<int>{1, 5});
    set.add(Set(std::set<int>{2, 5}));
    set.add(set);
    EXPECT_THAT(set.members(), ElementsAre(1, 2, 5));
}

TEST(Set, LeavesOutWhatItDoesNotHoldWhenRemoving)
{
    Set set(std::set<int>{1, 5});
    set.remove(3);
    set.remove(5);
    EXPECT_THAT(set.members(), ElementsAre(1));
}

TEST(Set, HoldsNothingThatCannotBeANumberOfAZoneOrVariable)
{
    Set set(std::set<int>{0, -3});
    set.add(0LL);
    set.add(-1LL);
    set.add(std::numeric_limits<int>::max() + 1LL);
    EXPECT_TRUE(set.isEmpty());
    EXPECT_FALSE(set.isMember(std::numeric_limits<int>::max() + 2LL));
    EXPECT_TRUE(Set(0LL).isEmpty());
    set.add(1LL + std::numeric_limits<unsigned>::max()); // 0 in 32 bits
    EXPECT_TRUE(set.isEmpty());
}

TEST(Set, DiffersExactlyWhenTheMembersDo)
{
    Set const set(std::set<int>{1, 2});
    EXPECT_FALSE(set != Set(std::set<int>{2, 1}));
    EXPECT_TRUE(set == Set(std::set<int>{2, 1}));
    EXPECT_TRUE(set != Set(1));
    EXPECT_FALSE(set == Set());
}

TEST(Set, CanBeChangedWhileItsMembersAreWalked)
{
    Set set(std::set<int>{1, 2, 3});
    for (int member : set.members())
        set.remove(member);
    EXPECT_TRUE(set.isEmpty());
}

} // namespace veldraw::tests
