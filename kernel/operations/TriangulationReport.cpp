#include "kernel/operations/TriangulationReport.h"

#include "kernel/base/Text.h"
#include "kernel/operations/ReportText.h"

namespace veldraw::kernel {

std::string TriangulationReport::text(std::string const& name, double seconds) const
{
    std::string text = name + ": " + counted(triangles, "triangle") + " between " + counted(points, "point") +
                       ", from " + listed(sources) + ", in " + twoDigits(seconds) + " s.";
    auto const add = [&text](std::int64_t count, std::string const& noun, std::string const& what) {
        text += count == 0 ? "" : " " + counted(count, noun) + " " + what + ".";
    };
    add(duplicates, "point", "left out where another one is at the same place");
    add(hidden, "hidden point", "left out");
    if (closed < boundaries) {
        text += closed == 0
                    ? " No boundary is closed, so that nothing was cut away."
                    : " " + std::to_string(closed) + " of " + counted(boundaries, "boundary line") + " are closed.";
    }
    add(cut, "triangle", "outside the boundary cut away");
    add(slivers, "triangle", "at the rim removed by the keep factor " + textOf(keepFactor));
    add(different + crossings - points, "point", "left out that no triangle uses");
    add(mixed, "point", "of boundaries with interpolated values");
    add(crossings, "new point", "where boundaries cross, with interpolated values");
    return text;
}

} // namespace veldraw::kernel
