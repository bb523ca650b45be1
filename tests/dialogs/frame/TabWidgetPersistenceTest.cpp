#include "dialogs/frame/TabWidgetPersistence.h"

#include "dialogs/frame/TabWidgetLaunchHelpAction.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"

#include <QTabWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace dialogs::common;
using sdk::ui::common::HelpLauncher;
using testing::ElementsAre;

std::unique_ptr<QTabWidget> makeTabs(std::vector<QString> const& pages)
{
    auto tabs = std::make_unique<QTabWidget>();
    tabs->setObjectName(QStringLiteral("sampleTabs"));
    for (QString const& name : pages) {
        auto* const page = new QWidget;
        page->setObjectName(name);
        tabs->addTab(page, name);
    }
    return tabs;
}

std::vector<QString> threePages()
{
    return {QStringLiteral("zones"), QStringLiteral("dataSet"), QStringLiteral("aux")};
}

TEST(TabWidgetPersistence, BringsTheSavedPageBackInAnotherWidgetOfTheSameName)
{
    auto const first = makeTabs(threePages());
    first->setCurrentIndex(2);
    TabWidgetPersistence(*first).save();
    auto const second = makeTabs(threePages());
    TabWidgetPersistence(*second).restore();
    EXPECT_EQ(second->currentIndex(), 2);
}

TEST(TabWidgetPersistence, FindsAPageThatHasMoved)
{
    auto const first = makeTabs(threePages());
    first->setCurrentIndex(0);
    TabWidgetPersistence(*first).save();
    auto const second = makeTabs({QStringLiteral("aux"), QStringLiteral("zones")});
    TabWidgetPersistence(*second).restore();
    EXPECT_EQ(second->currentIndex(), 1);
}

TEST(TabWidgetPersistence, LeavesTheWidgetAloneWhenThePageIsGoneOrNothingWasSaved)
{
    auto const first = makeTabs(threePages());
    first->setCurrentIndex(2);
    TabWidgetPersistence(*first).save();
    auto const without = makeTabs({QStringLiteral("other"), QStringLiteral("dataSet")});
    TabWidgetPersistence(*without).restore();
    EXPECT_EQ(without->currentIndex(), 0);

    auto const strange = makeTabs(threePages());
    strange->setObjectName(QStringLiteral("neverSaved"));
    TabWidgetPersistence(*strange).restore();
    EXPECT_EQ(strange->currentIndex(), 0);
}

TEST(TabWidgetPersistence, DoesNotRememberWhatHasNoName)
{
    auto const nameless = makeTabs(threePages());
    nameless->setObjectName(QString());
    nameless->setCurrentIndex(2);
    TabWidgetPersistence(*nameless).save();
    nameless->setCurrentIndex(1);
    TabWidgetPersistence(*nameless).restore();
    EXPECT_EQ(nameless->currentIndex(), 1);

    auto const pages = makeTabs({QString(), QString()});
    pages->setObjectName(QStringLiteral("tabsOfNamelessPages"));
    TabWidgetPersistence(*pages).save();
    pages->setCurrentIndex(1);
    TabWidgetPersistence(*pages).restore();
    EXPECT_EQ(pages->currentIndex(), 1);
}

TEST(TabWidgetPersistence, CopesWithAWidgetThatIsGoneOrEmpty)
{
    auto tabs = makeTabs({});
    TabWidgetPersistence const persistence(*tabs);
    persistence.save();
    persistence.restore();
    tabs.reset();
    persistence.save();
    persistence.restore();
}

class TabWidgetHelpTest : public testing::Test
{
protected:
    TabWidgetHelpTest()
    {
        HelpLauncher::install([this](std::string const& topic) { topics.push_back(topic); });
    }
    ~TabWidgetHelpTest() override { HelpLauncher::install(HelpLauncher::Opener()); }

    std::unique_ptr<QTabWidget> tabs = makeTabs(threePages());
    std::vector<std::string> topics;
};

TEST_F(TabWidgetHelpTest, OpensTheTopicOfTheCurrentPage)
{
    std::map<QWidget*, std::string> const topicByPage{{tabs->widget(0), "zones.html"}, {tabs->widget(1), "data.html"}};
    tabs->setCurrentIndex(1);
    auto* const action = new TabWidgetLaunchHelpAction(topicByPage, tabs.get(), *tabs);
    action->trigger();
    tabs->setCurrentIndex(0);
    action->trigger();
    tabs->setCurrentIndex(2);
    action->trigger();
    EXPECT_THAT(topics, ElementsAre("data.html", "zones.html", "zones.html"))
        << "a page without a topic keeps the last";
}

TEST_F(TabWidgetHelpTest, MayOutliveTheTabs)
{
    QObject owner;
    auto* const action = new TabWidgetLaunchHelpAction({{tabs->widget(0), "zones.html"}}, tabs.get(), owner);
    tabs.reset();
    action->trigger();
    EXPECT_THAT(topics, ElementsAre("zones.html"));
}

} // namespace
} // namespace veldraw::tests
