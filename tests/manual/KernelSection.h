#pragma once

#include "dialogs/property/Property.h"
#include "tests/manual/GallerySection.h"

#include <functional>
#include <set>
#include <string>

class QHBoxLayout;

namespace veldraw::tests {

/// Lists over the zones and variables of the session's data set, and buttons that change the data set under them.
class KernelSection : public GallerySection
{
public:
    KernelSection();

private:
    void addZones();
    void addVariables();
    void addActions();
    void addAction(QHBoxLayout* line, char const* name, char const* text, std::function<void()> const& action);

    void rename();
    void disableZones();
    void enableAll();

    boost::shared_ptr<PropertyAbstract<std::set<int>>> const m_zones;
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const m_variables;
    boost::shared_ptr<PropertyAbstract<std::string>> const m_newName;
};

} // namespace veldraw::tests
