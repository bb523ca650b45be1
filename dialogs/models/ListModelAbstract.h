#pragma once

#include "dialogs/models/ListModelInterface.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// What most lists have in common: not editable, no headings, search by walking. A concrete list gives `size`, `get`
/// and `getStr`:
///
///     class Planes : public ListModelAbstract<int>
///     {
///         int size() const override { return 3; }
///         int get(int index) const override { return index + 1; }
///         std::string getStr(int index) const override { return std::string(1, "IJK"[index]); }
///     };
///
/// The interface is a virtual base, so that a list and a proxy in one class share one set of signals.
template <typename T>
class ListModelAbstract : public virtual ListModelInterface<T>
{
public:
    ListModelAbstract();
    ~ListModelAbstract() override;

    /// The same as `getStr`.
    std::string getStrForEdit(int index) const override;
    /// Does nothing.
    void set(T value, int index) override;
    /// Refuses.
    bool setEditedItem(std::string const& text, int index) const override;
    bool isEditable() const override;
    bool isHeader(int index) const override;
    /// Walks from row 0; compares exactly. A list that shrinks meanwhile ends the walk at its new size.
    int indexOf(T const& value) const override;
};

extern template class VDSDKDIALOGS_DATA_QT_API ListModelAbstract<int>;
extern template class VDSDKDIALOGS_DATA_QT_API ListModelAbstract<double>;
#define VELDRAW_DECLARE(T) extern template class ListModelAbstract<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
