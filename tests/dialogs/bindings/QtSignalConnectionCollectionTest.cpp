#include "dialogs/bindings/QtSignalConnectionCollection.h"

#include <QObject>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::QtSignalConnectionCollection;

TEST(QtSignalConnectionCollection, DisconnectsAllWhenCleared)
{
    QObject sender;
    int heard = 0;
    QtSignalConnectionCollection connections;
    connections.add(QObject::connect(&sender, &QObject::objectNameChanged, [&heard] { ++heard; }));
    connections.add(QObject::connect(&sender, &QObject::objectNameChanged, [&heard] { ++heard; }));
    sender.setObjectName(QStringLiteral("a"));
    EXPECT_EQ(heard, 2);
    connections.clear();
    sender.setObjectName(QStringLiteral("b"));
    EXPECT_EQ(heard, 2);
    connections.add(QObject::connect(&sender, &QObject::objectNameChanged, [&heard] { ++heard; }));
    sender.setObjectName(QStringLiteral("c"));
    EXPECT_EQ(heard, 3);
}

TEST(QtSignalConnectionCollection, DisconnectsAllWhenItGoes)
{
    QObject sender;
    int heard = 0;
    {
        QtSignalConnectionCollection connections;
        connections.add(QObject::connect(&sender, &QObject::objectNameChanged, [&heard] { ++heard; }));
    }
    sender.setObjectName(QStringLiteral("a"));
    EXPECT_EQ(heard, 0);
}

TEST(QtSignalConnectionCollection, MayOutliveWhatIsConnected)
{
    auto sender = std::make_unique<QObject>();
    QtSignalConnectionCollection connections;
    connections.add(QObject::connect(sender.get(), &QObject::objectNameChanged, [] {}));
    sender.reset();
    EXPECT_NO_THROW(connections.clear());
}

TEST(QtSignalConnectionCollection, MayBeClearedByOneOfItsSlots)
{
    QObject sender;
    int heard = 0;
    QtSignalConnectionCollection connections;
    for (int n = 0; n < 2; ++n) {
        connections.add(QObject::connect(&sender, &QObject::objectNameChanged, [&] {
            ++heard;
            connections.clear();
        }));
    }
    sender.setObjectName(QStringLiteral("a"));
    EXPECT_EQ(heard, 1);
}

} // namespace
} // namespace veldraw::tests
