// Random edits, loads, unloads, copies, deletions, undos and redos, next to a plain model of what has to come out.
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetValue.h"
#include "tests/kernel/data/StormSession.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <set>

namespace veldraw::tests {

using namespace kernel;
using namespace storm;

namespace {

class EditStorm : public testing::TestWithParam<unsigned>, protected StormSession
{
protected:
    EditStorm()
        : StormSession(GetParam())
    {
    }

    // ---- what is done ----------------------------------------------------------------------------------------------
    void noteStep()
    {
        undone.clear();
        done.push_back(state);
    }

    double anyNumber()
    {
        double const numbers[] = {std::nan(""), -std::nan(""), INFINITY, -INFINITY, 0.0,     -0.0,  5e-324, 1e300,
                                  -1e300,       0.5,           254.5,    -32768.5,  32767.5, 1e-45, 4e9,    -1};
        return below(3) == 0 ? numbers[below(16)] : below(200) - 50;
    }

    void edit()
    {
        int const zone = anyZone();
        int const variable = anyVariable();
        std::int64_t const slot = below(slots + 2) - 1;
        double const value = anyNumber();
        bool const autoBranch = below(2) == 0;
        int const number = state.number(zone, variable);
        bool const exists = slot >= 0 && slot < slots && number != 0 && holdings[number].isLoaded &&
                            isUsed(state.storages[number].location, slot);
        bool const isTaken = exists && !isLocked && isWithinLimits(state.storages[number].type, value);
        ASSERT_EQ(session.perform(SetValue(*dataSet, zone, variable, slot, value, autoBranch)), isTaken);
        if (!isTaken) {
            return;
        }
        Bits const bits = storedBits(state.storages[number].type, value);
        if (state.storages[number].values.at(static_cast<std::size_t>(slot)) == bits) {
            return;
        }
        noteStep();
        if (autoBranch && state.users(number) > 1) {
            state.number(zone, variable) = ++lastStorage;
            state.storages[lastStorage] = state.storages[number];
            holdings[lastStorage] = {};
        } else {
            noteWrite(holdings[number]);
        }
        state.at(zone, variable).values.at(static_cast<std::size_t>(slot)) = bits;
    }

    static void noteWrite(Holding& holding)
    {
        holding.isAltered = true;
        holding.isMapped = holding.isMapped && !holding.isRead; // else written to a copy, in memory
        holding.isRead = false;
    }

    void duplicate()
    {
        if (dataSet->zoneCount() > 8) {
            return;
        }
        int const zone = anyZone();
        ASSERT_EQ(session.perform(DuplicateZones(*dataSet, {zone})), !isLocked);
        if (!isLocked) {
            noteStep();
            auto const copy = state.zones[static_cast<std::size_t>(zone - 1)];
            state.zones.push_back(copy);
            promised[dataSet->zone(dataSet->zoneCount())->id] = promised[dataSet->zone(zone)->id];
            state.hasDeferredSize.push_back(state.hasDeferredSize[static_cast<std::size_t>(zone - 1)]);
        }
    }

    void deleteVariable()
    {
        if (dataSet->variableCount() < 4) {
            return;
        }
        int const variable = anyVariable();
        ASSERT_EQ(session.perform(DeleteVariables(*dataSet, {variable})), !isLocked);
        if (!isLocked) {
            noteStep();
            for (auto& zone : state.zones) {
                zone.erase(zone.begin() + (variable - 1));
            }
        }
    }

    void load()
    {
        NumberSet zones;
        NumberSet wanted;
        for (int number = below(5); number > 0; --number) {
            zones.insert(anyZone());
            wanted.insert(anyVariable());
        }
        bool const unloads = below(3) > 0;
        trouble = static_cast<Trouble>(below(2) * below(5));
        std::set<int> const needed = storagesOf(zones, wanted);
        bool const tries = needsLoading(zones, wanted, needed);
        bool const succeeds = !tries || trouble == Trouble::None;
        ASSERT_EQ(unloads ? session.perform(MakeVariablesAvailable(*dataSet, zones, wanted))
                          : session.perform(LoadVariables(*dataSet, zones, wanted)),
                  succeeds);
        if (!succeeds) {
            ASSERT_NE(session.lastError(), "");
            if (trouble == Trouble::NoMemory) {
                noteUnloads(needed); // to make room, in vain
            } else {
                ASSERT_TRUE(events.empty());
            }
            return;
        }
        for (int const number : needed) {
            holdings[number].isLoaded = true;
        }
        for (int const zone : zones) {
            isSizeKnown = isSizeKnown || (!wanted.empty() && hasDeferredSize(zone));
        }
        if (unloads) {
            noteWishes(zones, wanted);
            session.loadedValues().setLimit(0);
            session.loadedValues().setLimit(std::numeric_limits<std::int64_t>::max());
            noteUnloads({});
        }
    }

    bool hasDeferredSize(int zone) { return state.hasDeferredSize[static_cast<std::size_t>(zone - 1)]; }

    std::set<int> storagesOf(NumberSet const& zones, NumberSet const& wanted)
    {
        std::set<int> found;
        for (int const zone : zones) {
            for (int const variable : wanted) {
                found.insert(state.number(zone, variable));
            }
        }
        found.erase(0);
        return found;
    }

    bool needsLoading(NumberSet const& zones, NumberSet const& wanted, std::set<int> const& needed)
    {
        bool const needsSize =
            !isSizeKnown && !wanted.empty() &&
            std::any_of(zones.begin(), zones.end(), [this](int zone) { return hasDeferredSize(zone); });
        return needsSize ||
               std::any_of(needed.begin(), needed.end(), [this](int number) { return !holdings[number].isLoaded; });
    }

    void noteWishes(NumberSet const& zones, NumberSet const& variables)
    {
        for (int const zone : zones) {
            std::set<UniqueId>& wishes = promised[dataSet->zone(zone)->id];
            wishes.clear();
            for (int const variable : variables) {
                wishes.insert(dataSet->variable(variable)->id);
            }
        }
    }

    /// Everything goes that nobody wants, but for what an operation needs.
    void noteUnloads(std::set<int> const& needed)
    {
        std::set<int> kept = needed;
        std::set<int> all;
        for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
            for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
                bool const isWanted = promised[dataSet->zone(zone)->id].count(dataSet->variable(variable)->id) > 0;
                (isWanted ? kept : all).insert(state.number(zone, variable));
            }
        }
        all.erase(0);
        for (int const number : all) {
            Holding& holding = holdings[number];
            if (kept.count(number) == 0 && holding.canBeLoaded && !holding.isAltered && !holding.isMapped) {
                holding.isLoaded = false;
                holding.isRead = false;
            }
        }
    }

    void goBackOrForth()
    {
        bool const back = below(2) == 0;
        std::vector<State>& from = back ? done : undone;
        std::vector<State>& to = back ? undone : done;
        ASSERT_EQ(back ? session.undo() : session.redo(), !from.empty());
        if (!from.empty()) {
            to.push_back(std::move(state));
            state = std::move(from.back());
            from.pop_back();
        }
    }

    void read()
    {
        int const zone = anyZone();
        int const variable = anyVariable();
        int const number = state.number(zone, variable);
        if (number != 0 && holdings[number].isLoaded) {
            readers.emplace_back(field(zone, variable).group()->buffer(), state.storages[number]);
            holdings[number].isRead = true;
        }
    }

    void changeTheRules()
    {
        isLocked = !isLocked && below(3) == 0;
        session.setLock(*dataSet, isLocked ? "somebody" : "");
        if (below(20) == 0) {
            session.history().clear();
            done.clear();
            undone.clear();
        }
    }

    void step()
    {
        int const kind = below(16);
        if (kind < 7) {
            edit();
        } else if (kind < 10) {
            goBackOrForth();
        } else if (kind < 12) {
            load();
        } else if (kind == 12) {
            duplicate();
        } else if (kind == 13) {
            deleteVariable();
        } else if (kind == 14) {
            read();
        } else {
            changeTheRules();
        }
    }

    // ---- what has to come out --------------------------------------------------------------------------------------
    void expectEqual()
    {
        ASSERT_EQ(dataSet->zoneCount(), static_cast<int>(state.zones.size()));
        for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
            ASSERT_EQ(dataSet->zone(zone)->i, hasDeferredSize(zone) && !isSizeKnown ? -1 : iPoints);
            ASSERT_EQ(dataSet->variableCount(),
                      static_cast<int>(state.zones[static_cast<std::size_t>(zone - 1)].size()));
            for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
                expectEqual(zone, variable);
            }
        }
        for (auto const& [buffer, storage] : readers) {
            ASSERT_EQ(valuesOf(*buffer), storage.values);
        }
    }

    void expectEqual(int zone, int variable)
    {
        int const number = state.number(zone, variable);
        ASSERT_EQ(field(zone, variable).isPassive(), number == 0);
        if (number == 0) {
            return;
        }
        Holding const& holding = holdings[number];
        ASSERT_EQ(field(zone, variable).shareCount(), state.users(number));
        ASSERT_EQ(field(zone, variable).isLoaded(), holding.isLoaded);
        if (holding.isLoaded) {
            ASSERT_EQ(valuesOf(*field(zone, variable).group()->buffer()), state.storages[number].values);
        }
        if (below(4) == 0) { // at times, so that ranges are also followed over several edits
            expectTrueRange(dataSet->zone(zone)->range(variable), state.storages[number], holding);
        }
    }

    static void expectTrueRange(ValueRange const& known, Storage const& storage, Holding const& holding)
    {
        auto const range = storage.range();
        if (holding.isLoaded && !holding.isMapped) {
            ASSERT_EQ(known.state, range ? ValueRange::State::Exact : ValueRange::State::Unknown);
        }
        if (known.state == ValueRange::State::Exact) {
            ASSERT_TRUE(range.has_value());
            ASSERT_EQ(known.min, range->first);
            ASSERT_EQ(known.max, range->second);
        } else if (known.isValid() && range) {
            ASSERT_LE(known.min, range->first);
            ASSERT_GE(known.max, range->second);
        }
    }

    static Values valuesOf(Buffer const& buffer)
    {
        Values values{};
        for (std::int64_t slot = 0; slot < std::min(buffer.size(), slots); ++slot) {
            values.at(static_cast<std::size_t>(slot)) = buffer.bits(slot);
        }
        return values;
    }

    using Look = std::vector<std::vector<std::optional<Values>>>;

    Look look()
    {
        Look all;
        for (auto const& zone : dataSet->zones()) {
            all.emplace_back();
            for (Field const& each : zone->fields) {
                bool const isThere = each.group() && each.isLoaded();
                all.back().push_back(isThere ? std::optional(valuesOf(*each.group()->buffer())) : std::nullopt);
            }
        }
        return all;
    }

    /// Whoever has looked @p before and heard the events has to know where to look again.
    void expectTold(Look const& before)
    {
        std::set<std::pair<int, int>> told;
        for (StateChangeEvent const& event : events) {
            bool const isOfValues =
                event.kind == StateChange_ValuesAltered || event.kind == StateChange_VariablesLoaded;
            if (event.kind >= StateChange_VariablesAdded && event.kind <= StateChange_ZonesDeleted) {
                return; // look at everything
            }
            for (int const zone : isOfValues ? event.zones : NumberSet()) {
                for (int const variable : event.variables) {
                    told.emplace(zone, variable);
                }
            }
        }
        Look const after = look();
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t zone = 0; zone < after.size(); ++zone) {
            for (std::size_t variable = 0; variable < after[zone].size(); ++variable) {
                if (after[zone][variable] != before[zone][variable]) {
                    ASSERT_EQ(told.count({static_cast<int>(zone) + 1, static_cast<int>(variable) + 1}), 1U);
                }
            }
        }
    }

    std::vector<State> done;
    std::vector<State> undone;
    std::map<UniqueId, std::set<UniqueId>> promised; // variables by zones; no part of what is undone
    bool isSizeKnown = false;
    bool isLocked = false;
    std::vector<std::pair<std::shared_ptr<Buffer const>, Storage>> readers;
};

TEST_P(EditStorm, LeavesTheSameValuesAsAPlainModel)
{
    for (int number = 0; number < 1500; ++number) {
        Look const before = look();
        events.clear();
        step();
        expectTold(before);
        expectEqual();
        if (HasFatalFailure()) {
            FAIL() << "seed " << GetParam() << ", step " << number;
        }
    }
    readers.clear();
    while (session.undo()) {
        state = done.back();
        done.pop_back();
    }
    ASSERT_TRUE(done.empty());
    trouble = Trouble::None;
    for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
        for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
            ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {zone}, {variable})));
            int const storage = state.number(zone, variable);
            if (storage != 0) {
                ASSERT_EQ(valuesOf(*field(zone, variable).group()->buffer()), state.storages[storage].values);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditStorm, testing::Range(1U, 13U));

} // namespace

} // namespace veldraw::tests
