#include "dialogs/property/UIKernelStylePropertiesAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

UIKernelStylePropertiesAbstract::UIKernelStylePropertiesAbstract(bool isModal,
                                                                 UIKernelStylePropertiesAbstract* const parent)
    : m_isModal(isModal)
    , m_parent(parent)
{
    if (m_parent)
        m_parentConnection = m_parent->connectSubmitted([this] { parentSubmitted(); });
}

UIKernelStylePropertiesAbstract::~UIKernelStylePropertiesAbstract() = default;

void UIKernelStylePropertiesAbstract::init()
{
    signalInitialized();
}

void UIKernelStylePropertiesAbstract::submit()
{
    for (boost::function<void()> const& submission : m_submissions)
        submission();
    signalSubmitted();
}

bool UIKernelStylePropertiesAbstract::isModal() const
{
    return m_isModal;
}

UIKernelStylePropertiesInterface* UIKernelStylePropertiesAbstract::parent() const
{
    return m_parent;
}

void UIKernelStylePropertiesAbstract::setCollectionOffset(int const& offset)
{
    m_collectionOffset = offset;
}

int UIKernelStylePropertiesAbstract::collectionOffset() const
{
    return m_collectionOffset;
}

void UIKernelStylePropertiesAbstract::addSubmission(boost::function<void()> const& submission)
{
    m_submissions.push_back(submission);
}

void UIKernelStylePropertiesAbstract::parentSubmitted()
{
    submit();
}

} // namespace veldraw::sdk::ui::propertymanager
