#pragma once

#include "dialogs/models/ListModelAbstract.h"

#include <string>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A value and what a person reads for it, UTF-8. Tables of these are constants that need no code at load, so any object
/// of static lifetime may read them.
template <typename T>
struct LabelledValue
{
    char const* label;
    T value;
};

/// A choice that is known when the program is written: labels and the values that they stand for, in the order in which
/// a person sees them. It never changes and so never signals.
///
///     auto const units = boost::make_shared<PremappedListModel<ThetaMode_e>>(thetaModeLabels);
///
/// `get` and `getStr` throw `std::out_of_range` for a row that there isn't.
template <typename T>
class PremappedListModel : public ListModelAbstract<T>
{
public:
    struct Entry
    {
        std::string label;
        T value;
    };

    /// Copies the entries; the table isn't read when there are none.
    PremappedListModel(Entry const* table, int count);
    /// Copies a table of constants, whose texts are UTF-8.
    template <int Count>
    explicit PremappedListModel(LabelledValue<T> const (&table)[Count])
        : PremappedListModel(table, table + Count)
    {
    }
    ~PremappedListModel() override;

    int size() const override;
    T get(int index) const override;
    std::string getStr(int index) const override;

private:
    PremappedListModel(LabelledValue<T> const* first, LabelledValue<T> const* last);
    Entry const& at(int index) const;

    std::vector<Entry> const m_entries;
};

#define VELDRAW_DECLARE(T) extern template class PremappedListModel<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
