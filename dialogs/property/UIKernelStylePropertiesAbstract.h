#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/UIKernelStylePropertiesInterface.h"

#include <boost/function.hpp>
#include <boost/signals2/connection.hpp>

#include <vector>

namespace veldraw::sdk::ui::propertymanager {

/// Base of the groups of kernel style properties. A derived class makes its properties immediate or deferred, as
/// `isModal()` says, and registers how the deferred ones are written.
class VDSDKDIALOGS_DATA_QT_API UIKernelStylePropertiesAbstract : public virtual UIKernelStylePropertiesInterface
{
public:
    /// @param isModal whether the values wait for `submit()`
    /// @param parent may be null; it has to live as long as this object
    UIKernelStylePropertiesAbstract(bool isModal, UIKernelStylePropertiesAbstract* const parent);
    ~UIKernelStylePropertiesAbstract() override;

    void init() override;
    void submit() override;
    bool isModal() const override;
    UIKernelStylePropertiesInterface* parent() const override;
    void setCollectionOffset(int const& offset) override;
    int collectionOffset() const override;

protected:
    /// Has @p submission run by `submit()`, after those that were added before it.
    void addSubmission(boost::function<void()> const& submission);

private:
    /// The parent was submitted; submits this group too.
    virtual void parentSubmitted();

    bool m_isModal;
    UIKernelStylePropertiesAbstract* m_parent;
    int m_collectionOffset = -1;
    std::vector<boost::function<void()>> m_submissions;
    boost::signals2::scoped_connection m_parentConnection;
};

} // namespace veldraw::sdk::ui::propertymanager
