#pragma once

#include "dialogs/models/ListModelAbstract.h"
#include "dialogs/models/OncePerTurnReader.h"
#include "dialogs/property/DialogsApi.h"

#include <boost/enable_shared_from_this.hpp>

#include <string>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// What a list of numbered, named things shows: a number and a name a row, as they were when the list last read them.
struct NamedNumbers
{
    std::vector<int> numbers;
    std::vector<std::string> names;

    int size() const;

    /// "<number>: <name>"
    std::string text(int row) const;

    /// The rows, ascending, whose names differ from those of another snapshot with the same numbers.
    std::vector<int> rowsNamedOtherwise(NamedNumbers const& other) const;
};

/// A list over a snapshot of numbered, named things of the kernel. The snapshot changes only when a derived class shows
/// a new one, so rows never move between two signals.
///
/// A derived class says that its source has changed and reads it anew when it is told to: see `OncePerTurnReader`. Asking for the size, which
/// whoever walks through the rows begins with, reads what is due, unless `ReadingAsTold` or in a loop over frames, which stands at another one.
///
/// A listener may drop the last reference to a shared list: the list lives until it has told everybody.
class VDSDKDIALOGS_DATA_QT_API NamedNumbersListModelAbstract
    : public ListModelAbstract<int>,
      public boost::enable_shared_from_this<NamedNumbersListModelAbstract>
{
public:
    ~NamedNumbersListModelAbstract() override;

    /// Of the list as the kernel is now, so listeners may be told before it answers.
    int size() const override;
    /// The number.
    int get(int index) const override;
    std::string getStr(int index) const override;

protected:
    NamedNumbersListModelAbstract();

    NamedNumbers const& shown() const;

    /// Has `readAnew()` called once or twice in this turn of the event loop, however often it is said.
    void sourceChanged() const;
    bool isReadingDue() const { return m_reader.isDue(); }
    /// Has `readAnew()` called now.
    void readNow() const;

    /// Takes a new snapshot and tells what it changed: nothing if it is equal, `signalItemChanged` a row if only names
    /// differ, `signalDataChanged` if the numbers do, or if so many names do that the list has become another one.
    void show(NamedNumbers&& snapshot) const;

    /// Takes another name in one row and tells it if it is one. Whoever calls holds on to a shared list meanwhile.
    void showName(int row, std::string&& name) const;

private:
    /// Reads the kernel and shows what is there.
    virtual void readAnew() const;

    mutable NamedNumbers m_shown;
    mutable OncePerTurnReader m_reader;
    mutable long long m_frameOfChange = 0; // active when the source changed last
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
