#include "platform/signals/SignalConnectionCollection.h"

#include <boost/signals2/signal.hpp>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {

using sdk::SignalConnectionCollection;

class SignalConnections : public ::testing::Test
{
protected:
    void connectTo(boost::signals2::signal<void()>& signal)
    {
        m_collection->add(signal.connect([this] { ++m_calls; }));
    }

    boost::signals2::signal<void()> m_first;
    boost::signals2::signal<void()> m_second;
    std::unique_ptr<SignalConnectionCollection> m_collection = std::make_unique<SignalConnectionCollection>();
    int m_calls = 0;
};

TEST_F(SignalConnections, RunUntilTheCollectionIsCleared)
{
    connectTo(m_first);
    connectTo(m_second);
    m_first();
    m_second();
    EXPECT_EQ(m_calls, 2);
    m_collection->clear();
    m_first();
    m_second();
    EXPECT_EQ(m_calls, 2);
    EXPECT_EQ(m_first.num_slots(), 0U);
}

TEST_F(SignalConnections, EndWithTheCollection)
{
    connectTo(m_first);
    m_collection.reset();
    m_first();
    EXPECT_EQ(m_calls, 0);
}

TEST_F(SignalConnections, CanBeAddedAgainAfterClearing)
{
    connectTo(m_first);
    m_collection->clear();
    connectTo(m_first);
    m_first();
    EXPECT_EQ(m_calls, 1);
}

TEST_F(SignalConnections, AreBlockedForTheBlockersScope)
{
    connectTo(m_first);
    {
        SignalConnectionCollection::ConnectionBlocker const blocker(*m_collection);
        m_first();
        {
            SignalConnectionCollection::ConnectionBlocker const inner(*m_collection);
        }
        m_first();
    }
    EXPECT_EQ(m_calls, 0);
    m_first();
    EXPECT_EQ(m_calls, 1);
}

TEST_F(SignalConnections, CanBeClearedByOneOfTheirOwnSlots)
{
    m_collection->add(m_first.connect([this] { m_collection->clear(); }));
    connectTo(m_first);
    m_first();
    EXPECT_EQ(m_calls, 0);
}

TEST_F(SignalConnections, OutliveTheirSignal)
{
    {
        boost::signals2::signal<void()> shortLived;
        connectTo(shortLived);
    }
    m_collection->clear();
    EXPECT_EQ(m_calls, 0);
}

} // namespace veldraw::tests
