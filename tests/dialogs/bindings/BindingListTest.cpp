#include "dialogs/bindings/BindingList.h"

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;

/// Writes its letter down when it ends.
class Letter : public BindingInterface
{
public:
    Letter(std::string& ended, char letter)
        : m_ended(ended)
        , m_letter(letter)
    {
    }
    ~Letter() override { m_ended += m_letter; }

private:
    std::string& m_ended;
    char m_letter;
};

TEST(BindingList, EndsItsBindingsInTheOrderOfTheirCreation)
{
    std::string ended;
    {
        BindingList bindings;
        for (char letter = 'a'; letter <= 'e'; ++letter)
            bindings.add<Letter>(ended, letter);
        bindings.adopt(std::make_unique<Letter>(ended, 'z'));
        EXPECT_EQ(ended, "");
    }
    EXPECT_EQ(ended, "abcdez");
}

TEST(BindingList, EndsThemOnceWhenItIsCleared)
{
    std::string ended;
    BindingList bindings;
    bindings.add<Letter>(ended, 'a');
    bindings.clear();
    EXPECT_EQ(ended, "a");
    bindings.add<Letter>(ended, 'b');
    bindings.clear();
    EXPECT_EQ(ended, "ab");
}

} // namespace
} // namespace veldraw::tests
