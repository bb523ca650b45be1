#include "tests/kernel/data/StormSession.h"

namespace veldraw::tests {

using namespace kernel;

namespace storm {

namespace {

constexpr int variables = 8;

FieldDataType_e typeOf(int variable)
{
    return static_cast<FieldDataType_e>(1 + (variable - 1) % 6);
}

} // namespace

StormSession::StormSession(unsigned seed)
    : random(seed)
{
    for (int number = 1; number <= variables; ++number) {
        dataSet->addVariable(std::make_shared<Variable>("v" + std::to_string(number)));
    }
    for (bool const isDeferred : {false, false, true}) {
        addZone(isDeferred);
    }
    auto frame = std::make_shared<Frame>("frame", Rectangle{});
    frame->dataSet = dataSet;
    session.openPage({frame});
    frame->axes2D = {};
    frame->axes3D = {};
    frame->contourVariable = 0;
    frame->lineMaps.clear();
    session.setWaiter(seed % 2 == 0 ? &m_otherThread : nullptr);
    session.events().subscribe([this](auto const& event) { events.push_back(event); });
}

StormSession::~StormSession()
{
    session.setWaiter(nullptr);
}

void StormSession::addZone(bool isDeferred)
{
    std::int64_t const known = isDeferred ? -1 : 1;
    auto zone =
        std::make_shared<Zone>("z", ZoneType_Ordered, isDeferred ? -1 : iPoints, isDeferred ? -1 : jPoints, known);
    zone->dimensionsLoader = isDeferred ? m_sizeLoader : nullptr;
    state.zones.emplace_back();
    state.hasDeferredSize.push_back(isDeferred);
    for (int variable = 1; variable <= variables; ++variable) {
        bool const isShared = variable % 3 == 1 && dataSet->zoneCount() == 1;
        if (isShared) {
            zone->fields.push_back(field(1, variable));
            state.zones.back().push_back(state.number(1, variable));
        } else {
            addField(*zone, variable, isDeferred);
        }
    }
    dataSet->addZone(zone);
}

void StormSession::addField(Zone& zone, int variable, bool isDeferred)
{
    auto const location = below(3) == 0 ? ValueLocation_CellCentered : ValueLocation_Nodal;
    if (below(8) == 0) {
        zone.fields.emplace_back(typeOf(variable), location);
        state.zones.back().push_back(0);
        return;
    }
    Storage storage{typeOf(variable), location, {}};
    for (Bits& bits : storage.values) {
        bits = below(4) == 0 ? anyPattern(storage.type) : storedBits(storage.type, below(100));
    }
    bool const isMapped = below(4) == 0;
    std::shared_ptr<ShareGroup> group;
    if (isDeferred || isMapped || below(2) == 0) {
        auto loader = std::make_shared<Loader>(storage, anyKnowledge(storage), isMapped, trouble);
        group = std::make_shared<ShareGroup>(storage.type, isDeferred ? -1 : slots, std::move(loader));
    } else {
        group = std::make_shared<ShareGroup>(bufferOf(storage));
    }
    holdings[++lastStorage] = {group->loader() != nullptr, group->isLoaded(), false, isMapped, false};
    state.zones.back().push_back(lastStorage);
    zone.fields.emplace_back(std::move(group), location);
    state.storages[lastStorage] = storage;
}

Bits StormSession::anyPattern(FieldDataType_e type)
{
    int const bits = type == FieldDataType_Double ? 64
                     : type == FieldDataType_Bit  ? 1
                                                  : 8 * static_cast<int>(Buffer::bytesOf(type, 1));
    Bits const pattern = std::uniform_int_distribution<Bits>()(random) >> (64 - bits);
    Bits const exponent = type == FieldDataType_Double  ? 0x7ffULL << 52U
                          : type == FieldDataType_Float ? 0xffU << 23U
                                                        : 0;
    return below(3) == 0 ? pattern | exponent : pattern; // infinities and not-a-numbers with anything in them
}

ValueRange StormSession::anyKnowledge(Storage const& storage)
{
    auto const range = storage.range();
    int const kind = range ? below(3) : 0;
    double const margin = kind == 1 ? 5 : 0;
    return kind == 0 ? ValueRange{}
                     : ValueRange{kind == 1 ? ValueRange::State::Estimated : ValueRange::State::Exact,
                                  range->first - margin, range->second + margin};
}

} // namespace storm

} // namespace veldraw::tests
