#pragma once

#include "kernel/base/NumberSet.h"
#include "kernel/operations/FrameOperation.h"

#include <functional>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Alters the line maps of a frame; event 19, and event 7 about what they assign. Line maps are given by one-based numbers.
class LineMapOperation : public FrameOperation
{
public:
    std::shared_ptr<Change> makeChange(EventHub& events) override;

protected:
    using FrameOperation::FrameOperation;

    /// Why line maps with these numbers cannot be altered; empty when there are some and all exist.
    std::string reasonAgainstMaps(NumberSet const& maps) const;

    /// The style values that the line maps have otherwise afterwards.
    virtual std::vector<std::string> alteredStyle() const { return {"LineMap", "Assign"}; }

    /// The line maps afterwards. @throws what keeps them from being altered
    virtual std::vector<LineMap> alteredMaps() const = 0;
};

/// Appends a line map: first zone, second over first variable. "New Line Map". Refused without a data set.
class CreateLineMap : public LineMapOperation
{
public:
    explicit CreateLineMap(UniqueId frame)
        : LineMapOperation(frame)
    {
    }

    CommandText command() const override;
    std::string name() const override { return "New Line Map"; }
    std::string reasonAgainst() const override;

protected:
    std::vector<LineMap> alteredMaps() const override;
};

/// Deletes line maps; without a step when there is nothing to delete. "Delete Line Map". Refused: numbers that do not exist.
class DeleteLineMaps : public LineMapOperation
{
public:
    DeleteLineMaps(UniqueId frame, NumberSet maps)
        : LineMapOperation(frame)
        , m_maps(std::move(maps))
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Delete Line Map"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

protected:
    std::vector<LineMap> alteredMaps() const override;

private:
    NumberSet m_maps;
};

/// Puts a copy behind each of some line maps, with all that they have but their identifiers. "Duplicate Line Map". Refused: no
/// numbers, numbers that do not exist.
class DuplicateLineMaps : public LineMapOperation
{
public:
    DuplicateLineMaps(UniqueId frame, NumberSet maps)
        : LineMapOperation(frame)
        , m_maps(std::move(maps))
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Duplicate Line Map"; }
    std::string reasonAgainst() const override;

protected:
    std::vector<LineMap> alteredMaps() const override;

private:
    NumberSet m_maps;
};

/// Alters line maps one by one. "Line Map". Refused: no numbers, numbers that do not exist, whatever the function throws.
class ChangeLineMaps : public LineMapOperation
{
public:
    /// @param alter called with a copy of each of the line maps
    /// @param style the style values that it alters
    ChangeLineMaps(UniqueId frame, NumberSet maps, std::function<void(LineMap&)> alter,
                   std::vector<std::string> style = {"LineMap"})
        : LineMapOperation(frame)
        , m_maps(std::move(maps))
        , m_alter(std::move(alter))
        , m_style(std::move(style))
    {
    }

    CommandText command() const override { return {}; }
    std::string name() const override { return "Line Map"; }
    std::string reasonAgainst() const override;

protected:
    std::vector<std::string> alteredStyle() const override { return m_style; }
    std::vector<LineMap> alteredMaps() const override;

private:
    NumberSet m_maps;
    std::function<void(LineMap&)> m_alter;
    std::vector<std::string> m_style;
};

/// The first line map, which is made if there is none, shows one variable of a zone over another. "Line Map". Refused: a frame
/// without a data set, numbers that do not exist.
class SetLinePlot : public LineMapOperation
{
public:
    /// @param zone, x, y one-based numbers
    SetLinePlot(UniqueId frame, int zone, int x, int y)
        : LineMapOperation(frame)
        , m_zone(zone)
        , m_x(x)
        , m_y(y)
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Line Map"; }
    std::string reasonAgainst() const override;

protected:
    std::vector<LineMap> alteredMaps() const override;

private:
    int m_zone;
    int m_x;
    int m_y;
};

} // namespace veldraw::kernel
