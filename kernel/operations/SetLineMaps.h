#pragma once

#include "kernel/operations/LineMapOperation.h"

#include <optional>

namespace veldraw::kernel {

/// What line maps are given; what is not named stays as it is.
struct LineMapSettings
{
    std::optional<bool> active;
    std::optional<std::string> name;
    std::optional<int> zone; ///< this and the next ones are one-based numbers
    std::optional<int> x;
    std::optional<int> y;
    std::optional<int> colour; ///< this and the next ones as in CurveLook
    std::optional<LineStyle> style;
    std::optional<double> width;
    std::optional<std::optional<bool>> symbols;
    std::optional<bool> isOnSecondAxis;
};

/// Gives some line maps the same settings; without a step when they have them already. "Line Map". Refused: no numbers, numbers that do
/// not exist, a zone or variable that there is not, a look that no curve has.
class SetLineMaps : public LineMapOperation
{
public:
    SetLineMaps(UniqueId frame, NumberSet maps, LineMapSettings settings)
        : LineMapOperation(frame)
        , m_maps(std::move(maps))
        , m_settings(std::move(settings))
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Line Map"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

protected:
    std::vector<std::string> alteredStyle() const override;
    std::vector<LineMap> alteredMaps() const override;

private:
    bool assigns() const { return m_settings.zone || m_settings.x || m_settings.y; }
    void alter(LineMap& map) const;

    NumberSet m_maps;
    LineMapSettings m_settings;
};

} // namespace veldraw::kernel
