#include "dialogs/bindings/OnIdleAfterPropertyChangeActionPerformer.h"

#include "dialogs/property/Property.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QCoreApplication>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::common::OnIdleAfterPropertyChangeActionPerformer;

class OnIdleAfterPropertyChangeActionPerformerTest : public ::testing::Test
{
protected:
    boost::shared_ptr<Property<int>> property = boost::make_shared<Property<int>>(0);
    int runs = 0;
    std::unique_ptr<OnIdleAfterPropertyChangeActionPerformer> performer =
        std::make_unique<OnIdleAfterPropertyChangeActionPerformer>(property, [this] { ++runs; });
};

TEST_F(OnIdleAfterPropertyChangeActionPerformerTest, RunsOnceAtIdleForAnyNumberOfChanges)
{
    property->setValue(1);
    property->setValue(2);
    property->setValue(3);
    EXPECT_EQ(runs, 0);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 1);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 1);
    property->setValue(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 2);
}

TEST_F(OnIdleAfterPropertyChangeActionPerformerTest, NotesNoChangesWhileDisabled)
{
    performer->enable(false);
    property->setValue(1);
    performer->enable(true);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 0);
    property->setValue(2);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 1);
}

TEST_F(OnIdleAfterPropertyChangeActionPerformerTest, KeepsARunThatIsPendingWhenDisabled)
{
    property->setValue(1);
    performer->enable(false);
    property->setValue(2);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 1);
}

TEST_F(OnIdleAfterPropertyChangeActionPerformerTest, CancelsAPendingRunWhenItGoes)
{
    property->setValue(1);
    performer.reset();
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 0);
    property->setValue(2);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 0);
}

TEST_F(OnIdleAfterPropertyChangeActionPerformerTest, WaitsForTheEndOfALock)
{
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        property->setValue(1);
        IdleDispatcher::flush();
        QCoreApplication::processEvents();
        EXPECT_EQ(runs, 0);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
}

TEST_F(OnIdleAfterPropertyChangeActionPerformerTest, KeepsASharedPropertyAlive)
{
    boost::weak_ptr<Property<int>> const watch = property;
    property.reset();
    EXPECT_FALSE(watch.expired());
    performer.reset();
    EXPECT_TRUE(watch.expired());
}

} // namespace
} // namespace veldraw::tests
