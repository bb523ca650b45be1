#pragma once

#include "dialogs/models/ListModelAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A list that shows another list, which can be replaced: listeners see one `signalDataChanged` a replacement and then
/// the inner list's signals as they come.
///
/// It is for choosing. Editing isn't passed on, whatever the inner list allows: a proxy is never editable, and the text
/// for an editor is the inner list's display text.
template <typename T>
class ListModelProxy : public ListModelAbstract<T>
{
public:
    /// @param model never null; shared
    explicit ListModelProxy(boost::shared_ptr<ListModelInterface<T>> model);
    ~ListModelProxy() override;

    /// Shows another list from now on and says so, also when it is the same one.
    void setModel(boost::shared_ptr<ListModelInterface<T>> const& model) const;

    int size() const override;
    T get(int index) const override;
    std::string getStr(int index) const override;
    void set(T value, int index) override;
    bool isHeader(int index) const override;
    int indexOf(T const& value) const override;

private:
    struct Record;
    std::unique_ptr<Record> m_record;
};

extern template class VDSDKDIALOGS_DATA_QT_API ListModelProxy<int>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
