#pragma once

#include "dialogs/property/RelevanceInterface.h"

#include <QObject>
#include <QString>

#include <boost/shared_ptr.hpp>

#include <functional>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Answers a widget's tool tip event while a rule is false; the widget's child.
class DisabledToolTipFilter : public QObject
{
public:
    DisabledToolTipFilter(boost::shared_ptr<propertymanager::RelevanceInterface const> rule,
                          std::function<QString()> text, QObject& widget);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    boost::shared_ptr<propertymanager::RelevanceInterface const> m_rule;
    std::function<QString()> m_text;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
