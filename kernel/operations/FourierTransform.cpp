#include "kernel/operations/FourierTransform.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/SystemMemory.h"
#include "kernel/base/Text.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/FourierResults.h"
#include "kernel/operations/ReportText.h"

#include <array>
#include <map>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

char const* nameOf(WindowFunction_e window)
{
    constexpr char const* names[] = {"Rectangular", "Triangular", "Hann", "Hamming"};
    return names[window];
}

std::string joined(std::vector<std::string> const& texts)
{
    std::string text;
    for (std::string const& each : texts) {
        text += (text.empty() ? "" : ", ") + each;
    }
    return text;
}

/// Why a zone whose dimensions are known cannot be transformed; empty when it can.
std::string reasonAgainstShape(Zone const& zone)
{
    if (!zone.isOrdered() || zone.dimensionality() != 1) {
        return "The zone " + quoted(zone.name) + " is not an ordered zone of one dimension.";
    }
    return zone.pointCount() < FourierTransform::fewestPoints
               ? "The zone " + quoted(zone.name) + " has fewer than " + std::to_string(FourierTransform::fewestPoints) +
                     " points."
               : "";
}

} // namespace

FourierTransform::FourierTransform(DataSet const& dataSet, int independent, NumberSet dependents, NumberSet sources,
                                   Choice choice)
    : DataSetOperation(dataSet)
    , m_independent(independent)
    , m_dependents(std::move(dependents))
    , m_sources(std::move(sources))
    , m_choice(choice)
{
}

std::string FourierTransform::find(Pages const& pages)
{
    std::string const reason = DataSetOperation::find(pages);
    std::shared_ptr<Frame> const active = pages.activeFrame();
    bool const obeysFrame = m_choice.obeyBlanking && active && active->dataSet == dataSet();
    m_valueBlanking = obeysFrame ? active->valueBlanking : ValueBlanking();
    return reason;
}

std::string FourierTransform::reasonAgainst() const
{
    if (char const* const reason = reasonAgainstZones(*dataSet(), m_sources)) {
        return reason;
    }
    std::string reason = reasonAgainstVariables();
    for (auto number = m_sources.begin(); number != m_sources.end() && reason.empty(); ++number) {
        Zone const& zone = *dataSet()->zone(*number);
        if (!zone.enabled) {
            return "The zone " + quoted(zone.name) + " is disabled.";
        }
        reason = zone.isDeferred() ? "" : reasonAgainstShape(zone);
        reason = reason.empty() ? reasonAgainstFields(*number) : reason;
    }
    return reason;
}

std::string FourierTransform::reasonAgainstVariables() const
{
    if (m_dependents.empty()) {
        return "No dependent variables were given.";
    }
    bool const allExist = *m_dependents.begin() >= 1 && *m_dependents.rbegin() <= dataSet()->variableCount();
    if (!allExist || !dataSet()->variable(m_independent)) {
        return noVariable;
    }
    return m_dependents.count(m_independent) == 0
               ? ""
               : "The independent variable " + quoted(dataSet()->variable(m_independent)->name) +
                     " is among the dependent ones.";
}

/// Where the values of the dependent variables of a zone are. Passive ones are anywhere.
ValueLocation_e FourierTransform::locationIn(int zone) const
{
    for (int const variable : m_dependents) {
        Field const& field = *dataSet()->field(zone, variable);
        if (!field.isPassive()) {
            return field.location();
        }
    }
    return dataSet()->field(zone, m_independent)->location();
}

/// Why the variables cannot be transformed in a zone; empty when they can.
std::string FourierTransform::reasonAgainstFields(int zone) const
{
    Field const& places = *dataSet()->field(zone, m_independent);
    std::string const zoneName = quoted(dataSet()->zone(zone)->name);
    std::string const independent = quoted(dataSet()->variable(m_independent)->name);
    if (places.isPassive()) {
        return "The independent variable " + independent + " is passive in the zone " + zoneName +
               ": it has no values there.";
    }
    ValueLocation_e const location = locationIn(zone);
    std::array<std::string, 2> names; // of variables with values at the cells, and at the points
    for (int const variable : m_dependents) {
        Field const& field = *dataSet()->field(zone, variable);
        if (!field.isPassive()) {
            names[field.location() == ValueLocation_CellCentered ? 0 : 1] = quoted(dataSet()->variable(variable)->name);
        }
    }
    if (!names[0].empty() && !names[1].empty()) {
        return "The zone " + zoneName + " has the values of " + names[0] + " at its cells and those of " + names[1] +
               " at its points: transform them one after the other.";
    }
    bool const isAxis = places.location() == ValueLocation_Nodal || location == ValueLocation_CellCentered;
    return isAxis ? ""
                  : "The independent variable " + independent + " has its values at the cells of the zone " + zoneName +
                        ", the dependent ones have theirs at the points.";
}

std::shared_ptr<DeferredLoad> FourierTransform::needs()
{
    m_load = std::make_shared<DeferredLoad>(*dataSet());
    for (int const zone : m_sources) {
        m_load->addField(zone, m_independent);
        m_load->obey(m_valueBlanking, zone);
        for (int const variable : m_dependents) {
            m_load->addField(zone, variable);
        }
    }
    return m_load;
}

void FourierTransform::compute(Progress& progress)
{
    auto const start = std::chrono::steady_clock::now();
    m_axes.assign(m_sources.size(), nullptr); // a first try may have left its results
    m_frequencies.clear();
    m_spectra.clear();
    double const available = availableMemory();
    std::vector<int> const sources = toVector(m_sources);
    forEachInParallel(static_cast<std::int64_t>(sources.size()), [&](std::int64_t at) {
        m_axes[static_cast<std::size_t>(at)] = makeAxis(sources[static_cast<std::size_t>(at)], progress);
    });
    prepareSpectra();
    requireMemory(bytesOf(m_spectra, m_choice.spectrum), available);
    shareFrequencies(progress);
    progress.setTotal(effortOf(m_spectra));
    makeSpectra(m_spectra, m_choice.spectrum, progress);
    m_report = report(secondsSince(start));
}

std::shared_ptr<SignalAxis const> FourierTransform::makeAxis(int zone, Progress const& progress) const
{
    ZoneDimensions const size = m_load->blankedDimensionsOf(*dataSet()->zone(zone));
    Zone const shape(dataSet()->zone(zone)->name, dataSet()->zone(zone)->type, size.i, size.j, size.k);
    std::string const reason = reasonAgainstShape(shape);
    if (!reason.empty()) {
        throw std::runtime_error(reason);
    }
    ValueLocation_e const location = locationIn(zone);
    Field const& places = *dataSet()->field(zone, m_independent);
    bool const areAtCells = location == ValueLocation_CellCentered;
    SignalAxis::Values values;
    values.count = areAtCells ? shape.cellCount() : shape.pointCount();
    values.areBetween = areAtCells && places.location() == ValueLocation_Nodal;
    values.hidden = m_choice.obeyBlanking && size.blanking ? size.blanking->hidden(location) : nullptr;
    auto axis = std::make_shared<SignalAxis>(m_load->valuesOf(places), std::move(values), progress);
    std::string const what = " independent variable " + quoted(dataSet()->variable(m_independent)->name);
    std::string const where = " the zone " + quoted(shape.name);
    switch (axis->fault()) {
    case SignalAxis::Fault::HasGaps:
        throw std::runtime_error(gapsIn(m_independent, zone));
    case SignalAxis::Fault::IsConstant:
        throw std::runtime_error("The" + what + " is constant in" + where + ".");
    case SignalAxis::Fault::IsNotSteady:
        throw std::runtime_error("The" + what + " neither rises nor falls all the way through" + where + ": look at " +
                                 (areAtCells ? "cell " : "point ") + std::to_string(axis->faultAt() + 1) + ".");
    case SignalAxis::Fault::HasNoSpacing:
        throw std::runtime_error("The steps of the" + what + " in" + where + " are too large or too small.");
    case SignalAxis::Fault::None:
        break;
    }
    return axis;
}

std::string FourierTransform::gapsIn(int variable, int zone) const
{
    return "More than half of the values of the variable " + quoted(dataSet()->variable(variable)->name) +
           " in the zone " + quoted(dataSet()->zone(zone)->name) + " are hidden or no numbers.";
}

void FourierTransform::prepareSpectra()
{
    auto axis = m_axes.begin();
    for (int const zone : m_sources) {
        for (int const variable : m_dependents) {
            Spectrum spectrum;
            spectrum.values = m_load->valuesOf(*dataSet()->field(zone, variable));
            spectrum.axis = *axis;
            spectrum.reasonAgainstGaps = gapsIn(variable, zone);
            m_spectra.push_back(std::move(spectrum));
        }
        ++axis;
    }
}

/// Makes the frequencies of all sources, once for those that have the same ones.
void FourierTransform::shareFrequencies(Progress const& progress)
{
    std::map<std::pair<std::int64_t, double>, std::shared_ptr<Buffer>> known;
    for (auto const& axis : m_axes) {
        std::shared_ptr<Buffer>& frequencies = known[{axis->count(), axis->spacing()}];
        if (!frequencies) {
            frequencies = frequenciesOf(*axis, m_choice.spectrum, progress);
        }
        m_frequencies.push_back(frequencies);
    }
}

std::shared_ptr<Change> FourierTransform::makeChange(EventHub& events)
{
    FourierResults results(dataSet(), m_dependents, {m_choice.replaceZones, m_choice.replaceVariables});
    auto spectrum = m_spectra.begin();
    std::size_t at = 0;
    for (int const zone : m_sources) {
        std::vector<FourierResults::Triple> triples;
        for (std::size_t dependent = 0; dependent < m_dependents.size(); ++dependent, ++spectrum) {
            triples.push_back({m_frequencies[at], spectrum->amplitudes, spectrum->phases});
        }
        results.addZone(zone, triples, notesOn(zone, at));
        ++at;
    }
    m_resultZones = results.zones();
    m_resultVariables = results.variables();
    return results.makeChange(events);
}

/// Auxiliary data for the zone with the results of the source with this place among the sources.
std::vector<AuxiliaryData::Item> FourierTransform::notesOn(int zone, std::size_t place) const
{
    SignalAxis const& axis = *m_axes[place];
    std::vector<std::string> bridged;
    std::size_t spectrum = place * m_dependents.size();
    for (int const variable : m_dependents) {
        std::int64_t const count = m_spectra[spectrum++].bridged;
        if (count > 0) {
            bridged.push_back(dataSet()->variable(variable)->name + ": " + std::to_string(count));
        }
    }
    return {{"Fourier.SourceZone", dataSet()->zone(zone)->name},
            {"Fourier.IndependentVariable", dataSet()->variable(m_independent)->name},
            {"Fourier.DependentVariables", joined(namesOfDependents())},
            {"Fourier.Window", nameOf(m_choice.spectrum.window)},
            {"Fourier.Conjugates", m_choice.spectrum.includeConjugates ? "included" : "left out"},
            {"Fourier.Values", std::to_string(axis.count())},
            {"Fourier.Spacing", textOf(axis.spacing())},
            {"Fourier.Resampled", axis.isEven() ? "" : "to even steps, linearly"},
            {"Fourier.Bridged", joined(bridged)}};
}

std::vector<std::string> FourierTransform::namesOfDependents() const
{
    std::vector<std::string> names;
    for (int const variable : m_dependents) {
        names.push_back(dataSet()->variable(variable)->name);
    }
    return names;
}

std::string FourierTransform::report(double seconds) const
{
    std::vector<std::string> zones;
    std::vector<std::string> resampled;
    std::int64_t bridged = 0;
    auto axis = m_axes.begin();
    for (int const zone : m_sources) {
        zones.push_back(dataSet()->zone(zone)->name);
        if (!(*axis++)->isEven()) {
            resampled.push_back(zones.back());
        }
    }
    for (Spectrum const& spectrum : m_spectra) {
        bridged += spectrum.bridged;
    }
    std::string text = name() + ": " + listed(namesOfDependents()) + " over " +
                       quoted(dataSet()->variable(m_independent)->name) + " in " + listed(zones) + ", window " +
                       nameOf(m_choice.spectrum.window) + ", in " + twoDigits(seconds) + " s.";
    text += resampled.empty() ? "" : " The steps are not even in " + listed(resampled) + ": resampled linearly.";
    text += bridged == 0 ? "" : " Hidden or no numbers, and bridged linearly: " + counted(bridged, "value") + ".";
    return text;
}

CommandText FourierTransform::command() const
{
    static constexpr char const* windows[] = {"rectangular", "triangular", "hann", "hamming"};
    return CommandText("fourier-transform")
        .numbers("zones", m_sources)
        .numbers("variables", m_dependents)
        .number("independent", m_independent)
        .word("window", windows[m_choice.spectrum.window])
        .flag("conjugates", m_choice.spectrum.includeConjugates)
        .flag("obey-blanking", m_choice.obeyBlanking)
        .flag("replace-zones", m_choice.replaceZones)
        .flag("replace-variables", m_choice.replaceVariables);
}

} // namespace veldraw::kernel
