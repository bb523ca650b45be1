#pragma once

#include "kernel/session/Session.h"
#include "tests/kernel/data/StormLoader.h"
#include "tests/kernel/support/Waiters.h"

#include <random>

namespace veldraw::tests {

namespace storm {

/// A session with random zones, and the model of it. Two zones share some of their values, a third does not know its size yet;
/// values of every type stand at points or cells, in memory or with loaders that may map them.
class StormSession
{
public:
    explicit StormSession(unsigned seed);
    ~StormSession();

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    int anyZone() { return 1 + below(dataSet->zoneCount()); }
    int anyVariable() { return 1 + below(dataSet->variableCount()); }
    kernel::Field const& field(int zone, int variable) const { return *dataSet->field(zone, variable); }

    std::mt19937 random;
    std::shared_ptr<kernel::DataSet> dataSet = std::make_shared<kernel::DataSet>("storm");
    Trouble trouble = Trouble::None; ///< of all loaders
    kernel::Session session;
    std::vector<kernel::StateChangeEvent> events; ///< heard since somebody cleared them
    State state;
    std::map<int, Holding> holdings; ///< by numbers of storages
    int lastStorage = 0;

    StormSession(StormSession const&) = delete;
    StormSession& operator=(StormSession const&) = delete;

private:
    void addZone(bool isDeferred);
    void addField(kernel::Zone& zone, int variable, bool isDeferred);
    Bits anyPattern(FieldDataType_e type);
    kernel::ValueRange anyKnowledge(Storage const& storage);

    std::shared_ptr<SizeLoader> m_sizeLoader = std::make_shared<SizeLoader>(trouble);
    PlainWaiter m_otherThread;
};

} // namespace storm

} // namespace veldraw::tests
