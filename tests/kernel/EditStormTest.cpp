// Random edits, loads, unloads, copies, deletions, undos and redos, next to a plain model of what has to come out.
#include "SampleLoader.h"
#include "SessionFixture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <random>

using namespace veldraw::kernel;
using sample::Loader;

namespace {

constexpr std::int64_t points = 12;
constexpr int variables = 4;

/// Values by fields, each on a numbered storage; a state is all of it, so that undo is to take an older one.
struct Model
{
    using Storage = std::vector<double>;
    std::map<int, Storage> storages;
    std::vector<std::vector<int>> zones; // of numbers of storages
    int nextStorage = 0;

    int add(Storage values)
    {
        storages[nextStorage] = std::move(values);
        return nextStorage++;
    }

    int users(int storage) const
    {
        int count = 0;
        for (auto const& zone : zones) {
            count += static_cast<int>(std::count(zone.begin(), zone.end(), storage));
        }
        return count;
    }
};

class EditStorm : public testing::TestWithParam<unsigned>
{
protected:
    EditStorm()
    {
        for (int number = 1; number <= variables; ++number) {
            dataSet->addVariable(std::make_shared<Variable>("v" + std::to_string(number)));
        }
        for (int number = 0; number < 2; ++number) {
            auto zone = std::make_shared<Zone>("z", ZoneType_Ordered, points, 1, 1);
            model.zones.emplace_back();
            for (int variable = 0; variable < variables; ++variable) {
                Model::Storage values(points);
                for (double& value : values) {
                    value = below(100);
                }
                auto const loader = std::make_shared<Loader>(values, FieldDataType_Double);
                zone->fields.push_back(variable % 2 == 0 ? Loader::field(loader)
                                                         : sample::field(values, FieldDataType_Double));
                model.zones.back().push_back(model.add(values));
            }
            dataSet->addZone(zone);
        }
        auto frame = std::make_shared<Frame>("frame", Rectangle{});
        frame->dataSet = dataSet;
        session.openPage({frame});
        frame->axes2D = {};
        frame->axes3D = {};
        frame->contourVariable = 0;
        frame->lineMaps.clear();
    }

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    int anyZone() { return 1 + below(dataSet->zoneCount()); }
    int anyVariable() { return 1 + below(dataSet->variableCount()); }

    void noteStep(Model before)
    {
        undone.clear();
        done.push_back(std::move(before));
    }

    void edit()
    {
        int const zone = anyZone();
        int const variable = anyVariable();
        int const index = below(points);
        double const value = below(8) == 0 ? std::nan("") : below(200) - 50;
        bool const autoBranch = below(2) == 0;
        bool const isLoaded = dataSet->field(zone, variable)->isLoaded();
        ASSERT_EQ(session.setValue(*dataSet, zone, variable, index, value, autoBranch), isLoaded);
        int& storage = model.zones[static_cast<std::size_t>(zone - 1)][static_cast<std::size_t>(variable - 1)];
        double const old = model.storages[storage][static_cast<std::size_t>(index)];
        if (!isLoaded || std::memcmp(&old, &value, sizeof value) == 0) {
            return;
        }
        noteStep(model);
        if (autoBranch && model.users(storage) > 1) {
            storage = model.add(model.storages[storage]);
        }
        model.storages[storage][static_cast<std::size_t>(index)] = value;
    }

    void duplicate()
    {
        if (dataSet->zoneCount() > 8) {
            return;
        }
        int const zone = anyZone();
        ASSERT_TRUE(session.duplicateZones(*dataSet, {zone}));
        noteStep(model);
        auto const copy = model.zones[static_cast<std::size_t>(zone - 1)];
        model.zones.push_back(copy);
    }

    void deleteVariable()
    {
        if (dataSet->variableCount() < 3) {
            return;
        }
        int const variable = anyVariable();
        ASSERT_TRUE(session.deleteVariables(*dataSet, {variable}));
        noteStep(model);
        for (auto& zone : model.zones) {
            zone.erase(zone.begin() + (variable - 1));
        }
    }

    void load()
    {
        NumberSet zones;
        NumberSet wanted;
        for (int number = below(4); number > 0; --number) {
            zones.insert(anyZone());
            wanted.insert(anyVariable());
        }
        ASSERT_TRUE(session.makeVariablesAvailable(*dataSet, zones, wanted));
        for (int const zone : zones) {
            for (int const variable : wanted) {
                ASSERT_TRUE(dataSet->field(zone, variable)->isLoaded());
            }
        }
    }

    void goBackOrForth()
    {
        bool const back = below(2) == 0;
        std::vector<Model>& from = back ? done : undone;
        std::vector<Model>& to = back ? undone : done;
        ASSERT_EQ(back ? session.undo() : session.redo(), !from.empty());
        if (!from.empty()) {
            to.push_back(std::move(model));
            model = std::move(from.back());
            from.pop_back();
        }
    }

    void expectEqual()
    {
        ASSERT_EQ(dataSet->zoneCount(), static_cast<int>(model.zones.size()));
        for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
            auto const& storages = model.zones[static_cast<std::size_t>(zone - 1)];
            ASSERT_EQ(dataSet->variableCount(), static_cast<int>(storages.size()));
            for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
                Field const& field = *dataSet->field(zone, variable);
                int const storage = storages[static_cast<std::size_t>(variable - 1)];
                ASSERT_EQ(field.shareCount(), model.users(storage));
                expectEqual(*dataSet->zone(zone), variable, model.storages[storage]);
            }
        }
    }

    void expectEqual(Zone const& zone, int variable, Model::Storage const& expected)
    {
        ShareGroup const& group = *zone.fields[static_cast<std::size_t>(variable - 1)].group();
        if (!group.isLoaded()) {
            return;
        }
        for (std::int64_t at = 0; at < points; ++at) {
            double const value = group.buffer()->value(at);
            ASSERT_EQ(std::memcmp(&value, &expected[static_cast<std::size_t>(at)], sizeof value), 0);
        }
        if (below(3) == 0) { // at times, so that ranges are also followed over several edits
            ShareGroup const fresh(group.buffer()->clone());
            ASSERT_EQ(zone.range(variable).min, fresh.range().min);
            ASSERT_EQ(zone.range(variable).max, fresh.range().max);
        }
    }

    std::mt19937 random{GetParam()};
    std::shared_ptr<DataSet> dataSet = std::make_shared<DataSet>("storm");
    Session session;
    Model model;
    std::vector<Model> done;
    std::vector<Model> undone;
};

TEST_P(EditStorm, LeavesTheSameValuesAsAPlainModel)
{
    for (int step = 0; step < 1500; ++step) {
        switch (below(12)) {
        case 0:
            duplicate();
            break;
        case 1:
            deleteVariable();
            break;
        case 2:
        case 3:
            load();
            break;
        case 4:
        case 5:
        case 6:
            goBackOrForth();
            break;
        default:
            edit();
            break;
        }
        expectEqual();
        if (HasFatalFailure()) {
            FAIL() << "seed " << GetParam() << ", step " << step;
        }
    }
    while (session.undo()) {
        model = done.back();
        done.pop_back();
    }
    ASSERT_TRUE(done.empty());
    ASSERT_TRUE(session.loadVariables(*dataSet, {1, 2}, {1, 2, 3, 4}));
    expectEqual();
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditStorm, testing::Range(1U, 9U));

} // namespace
