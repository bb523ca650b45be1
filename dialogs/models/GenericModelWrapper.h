#pragma once

#include "dialogs/models/GenericModelWrapperInterface.h"
#include "dialogs/models/ListModelInterface.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Forwards to one list, whose values convert to `int`. Doesn't own the list: the list's owner outlives the wrapper.
template <typename T>
class GenericModelWrapper : public GenericModelWrapperInterface
{
public:
    explicit GenericModelWrapper(ListModelInterface<T> const* model);

    int size() const override;
    bool isEditable() const override;
    bool isHeader(int index) const override;
    std::string getStr(int index) const override;
    std::string getStrForEdit(int index) const override;
    bool setEditedItem(std::string const& text, int index) const override;
    QVariant get(int index) const override;

private:
    ListModelInterface<T> const* m_model;
};

extern template class VDSDKDIALOGS_DATA_QT_API GenericModelWrapper<int>;
#define VELDRAW_DECLARE(T) extern template class GenericModelWrapper<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
