#pragma once

#include "dialogs/property/UIStylePropertyDecoratorAbstract.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The number of a time strand as text; empty for a static zone, whose number means nothing to a user. For reading only.
class TimeStrandDecorator : public UIStylePropertyDecoratorAbstract<std::string, int>
{
public:
    explicit TimeStrandDecorator(boost::shared_ptr<UIStylePropertyAbstract<int>> strand);
    ~TimeStrandDecorator() override;

protected:
    void storeValue(std::string const& newValue) override;

private:
    std::string retrieveValue() const override;
};

} // namespace veldraw::sdk::ui::propertymanager
