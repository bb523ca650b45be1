#include "dialogs/datasetinfo/ZoneDimensionText.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

constexpr long long unknown = -1;

long long dimensionOf(std::string const& text)
{
    return text.empty() ? unknown : textToWholeNumber(text);
}

} // namespace

ZoneDimensionText::ZoneDimensionText(boost::shared_ptr<PropertyAbstract<long long>> dimension, Label const& label)
    : PropertyTypeAdapter<std::string, long long>(
          std::move(dimension),
          [label](long long number) {
              bool const isShown = number != unknown && !label->value().empty();
              return isShown ? wholeNumberToText(number) : std::string();
          },
          &dimensionOf)
{
    m_connections.add(label->connectValueChanged([this](std::string const&) { signalValueChanged(value()); }));
}

ZoneDimensionText::~ZoneDimensionText() = default;

void ZoneDimensionText::storeValue(std::string const&) {}

} // namespace veldraw::sdk::ui::propertymanager
