#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/models/ListModelAbstract.h"
#include "dialogs/property/Property.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>
#include <set>
#include <string>

// A property that changes a thousand times in one turn of the event loop; how often is its widget written?

namespace veldraw::bench {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

int const changesInATurn = 1000;

/// The numbers from 0 on.
class Numbers : public models::ListModelAbstract<int>
{
public:
    int size() const override { return changesInATurn; }
    int get(int index) const override { return index; }
    std::string getStr(int index) const override { return std::to_string(index); }
};

int valueOf(int number, int*)
{
    return number;
}

std::set<int> valueOf(int number, std::set<int>*)
{
    return {number};
}

/// Every change is to another value than the one before, and so is the last value of a turn than that of the last turn.
template <typename T>
void changeManyTimes(benchmark::State& state, boost::shared_ptr<Property<T>> const& property, int const& writes)
{
    IdleDispatcher::flush();
    int const before = writes;
    int number = 0;
    for (auto _ : state) {
        for (int change = 0; change < changesInATurn; ++change)
            property->setValue(valueOf(++number % (changesInATurn - 1), static_cast<T*>(nullptr)));
        IdleDispatcher::flush();
    }
    state.counters["writes"] = benchmark::Counter(writes - before, benchmark::Counter::kAvgIterations);
    if (writes - before != static_cast<int>(state.iterations()))
        state.SkipWithError("the widget was not written once a turn");
}

void aThousandChangesOfATextField(benchmark::State& state)
{
    QLineEdit field;
    auto const property = boost::make_shared<Property<int>>(0);
    TextFieldPropertyBinding<int> const binding(&field, property);
    int writes = 0;
    QObject::connect(&field, &QLineEdit::textChanged, [&writes] { ++writes; });
    changeManyTimes(state, property, writes);
}

void aThousandChangesOfAComboBox(benchmark::State& state)
{
    QComboBox box;
    auto const property = boost::make_shared<Property<int>>(0);
    ComboBoxPropertyBinding<int> const binding(&box, boost::make_shared<Numbers>(), property,
                                               BindingInterface::ModelUpdateDeferredOnBusy);
    int writes = 0;
    QObject::connect(&box, QOverload<int>::of(&QComboBox::currentIndexChanged), [&writes] { ++writes; });
    changeManyTimes(state, property, writes);
}

void aThousandChangesOfAListView(benchmark::State& state)
{
    QListView view;
    auto const property = boost::make_shared<Property<std::set<int>>>();
    ListViewPropertyBinding const binding(&view, boost::make_shared<Numbers>(), property,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    int writes = 0;
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, [&writes] { ++writes; });
    changeManyTimes(state, property, writes);
}

BENCHMARK(aThousandChangesOfATextField)->Unit(benchmark::kMicrosecond);
BENCHMARK(aThousandChangesOfAComboBox)->Unit(benchmark::kMicrosecond);
BENCHMARK(aThousandChangesOfAListView)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veldraw::bench
