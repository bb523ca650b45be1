#include "dialogs/widgets/IntegralSpinBox.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

/// A spin box of a language, and what it says to texts.
class TalkingBox : public veldraw::ui::IntegralSpinBox
{
public:
    explicit TalkingBox(QLocale const& language)
    {
        setLocale(language);
        setRange(-100000, 100000);
    }

    bool takes(char const* characters) const
    {
        QString text = QString::fromLatin1(characters);
        int position = 0;
        return validate(text, position) == QValidator::Acceptable;
    }
};

TEST(IntegralSpinBoxTest, TakesNoNumberWithGroupsOfDigitsInWhateverLanguage)
{
    TalkingBox const english(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(english.takes("1000"));
    EXPECT_FALSE(english.takes("1,000"));
    EXPECT_FALSE(english.takes("10,00"));
    TalkingBox const german(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_TRUE(german.takes("1000"));
    EXPECT_FALSE(german.takes("1.000")) << "which may be meant for one";
}

} // namespace
} // namespace veldraw::tests
