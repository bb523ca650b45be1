#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QVariant>

#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A list without its value type, so that one Qt item model serves lists of any type. Rows count from 0.
class VDSDKDIALOGS_DATA_QT_API GenericModelWrapperInterface
{
public:
    GenericModelWrapperInterface() = default;
    GenericModelWrapperInterface(GenericModelWrapperInterface const&) = delete;
    GenericModelWrapperInterface& operator=(GenericModelWrapperInterface const&) = delete;
    virtual ~GenericModelWrapperInterface() = default;

    virtual int size() const = 0;
    virtual bool isEditable() const = 0;
    virtual bool isHeader(int index) const = 0;
    virtual std::string getStr(int index) const = 0;
    virtual std::string getStrForEdit(int index) const = 0;
    virtual bool setEditedItem(std::string const& text, int index) const = 0;
    /// The value as an `int`.
    virtual QVariant get(int index) const = 0;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
