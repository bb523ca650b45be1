#include "tests/kernel/support/StateDigest.h"

#include <sstream>

namespace veldraw::tests {

using namespace kernel;

namespace {

void addField(std::ostream& out, Field const& field)
{
    out << " [" << field.type() << ' ' << field.location() << ' ';
    if (field.isPassive()) {
        out << "passive]";
        return;
    }
    out << field.group().get() << ' ' << field.group()->buffer().get() << " x" << field.shareCount() << ']';
}

void addFrame(std::ostream& out, Frame const& frame)
{
    Rectangle const& place = frame.rectangle;
    out << "frame " << frame.id << ' ' << frame.name << ' ' << place.x << ' ' << place.y << ' ' << place.width << ' '
        << place.height << " type " << frame.plotType << " axes";
    for (UniqueId const id : frame.axes2D) {
        out << ' ' << id;
    }
    for (UniqueId const id : frame.axes3D) {
        out << ' ' << id;
    }
    for (UniqueId const id : frame.vector) {
        out << ' ' << id;
    }
    out << ' ' << frame.contourVariable << ' ' << frame.showContour << frame.contourInBands << frame.contourWithoutEnds
        << frame.contourLog << frame.contourLines << frame.contourLabels << frame.showVectors << frame.equalVectors
        << frame.showMesh << frame.showCuts << frame.stretchAxes << frame.parallelProjection << frame.showLines
        << frame.showSymbols << frame.logX << frame.logY << ' ' << frame.solutionTime << '\n';
    out << "line axes " << frame.logY2 << ' ' << frame.lineAxes.title;
    for (LineAxis const& axis : frame.lineAxes.axes) {
        out << ' ' << axis.isFixed << ' ' << axis.min << ' ' << axis.max << ' ' << axis.title;
    }
    out << '\n';
    ContourColours const& colours = frame.contourColours;
    out << "colours " << colours.isFixed << ' ' << colours.min << ' ' << colours.max << ' ' << colours.levels << ' '
        << static_cast<int>(colours.map) << '\n';
    out << "blanking " << frame.valueBlanking.isOn;
    for (BlankingConstraint const& constraint : frame.valueBlanking.constraints) {
        out << ' ' << constraint.variable << (constraint.isAbove ? '>' : '<') << constraint.limit
            << constraint.isActive;
    }
    out << '\n';
    for (Cut const& cut : frame.cuts) {
        out << "cut " << cut.id << ' ' << static_cast<int>(cut.kind) << ' ' << cut.position << ' ' << cut.normal[0]
            << ' ' << cut.normal[1] << ' ' << cut.normal[2] << ' ' << cut.origin[0] << ' ' << cut.origin[1] << ' '
            << cut.origin[2] << ' ' << cut.variable << ' ' << cut.isShown << '\n';
    }
    for (LineMap const& map : frame.lineMaps) {
        out << "map " << map.id << ' ' << map.name << ' ' << map.zone << ' ' << map.xVariable << ' ' << map.yVariable
            << ' ' << map.active << ' ' << map.indices[0].min << ' ' << map.look.colour << ' '
            << static_cast<int>(map.look.style) << ' ' << map.look.width << ' ' << map.look.symbols.has_value()
            << map.look.symbols.value_or(false) << map.isOnSecondAxis << '\n';
    }
    if (frame.dataSet) {
        out << stateDigest(*frame.dataSet);
    }
}

} // namespace

std::string stateDigest(DataSet const& dataSet)
{
    std::ostringstream out;
    out << "data " << dataSet.id() << ' ' << dataSet.title() << " lock " << dataSet.lockHolder() << '\n';
    for (auto const& variable : dataSet.variables()) {
        out << "variable " << variable->id << ' ' << variable->name << ' ' << variable->enabled << '\n';
    }
    for (auto const& zone : dataSet.zones()) {
        out << "zone " << zone->id << ' ' << zone->name << ' ' << zone->enabled << ' ' << zone->i << ' ' << zone->j
            << ' ' << zone->k << " type " << zone->type << " time " << zone->solutionTime << " strand " << zone->strand
            << " cells " << zone->connectivity.get();
        for (int item = 1; item <= zone->auxiliaryData.size(); ++item) {
            AuxiliaryData::Item const& text = zone->auxiliaryData.item(item);
            out << " (" << text.name << '=' << text.value << ' ' << text.retain << ')';
        }
        for (Field const& field : zone->fields) {
            addField(out, field);
        }
        out << '\n';
    }
    for (TransformRecord::ResultZone const& result : dataSet.transformRecord().zones) {
        out << "zone " << result.zone << " transformed from " << result.source << '\n';
    }
    for (TransformRecord::ResultVariables const& result : dataSet.transformRecord().variables) {
        out << "variables " << result.variables[0] << ' ' << result.variables[1] << ' ' << result.variables[2]
            << " transformed from " << result.source << '\n';
    }
    return out.str();
}

std::string stateDigest(Session const& session)
{
    std::ostringstream out;
    for (auto const& page : session.pages().all()) {
        out << "page " << page->id << " active " << page->activeFrame << '\n';
        for (auto const& frame : page->frames) {
            addFrame(out, *frame);
        }
    }
    History const& history = session.history();
    out << "undo " << history.undoName() << " redo " << history.redoName() << " bytes " << history.valueBytes();
    return out.str();
}

} // namespace veldraw::tests
