#pragma once

#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/SpectrumWork.h"

namespace veldraw::kernel {

/// "Discrete Fourier Transform": frequencies, amplitudes and phases of dependent variables along ordered zones of one dimension.
///
/// Each source zone gets a result zone, with a point for each frequency, and each dependent variable three variables that follow each
/// other. Results are in double precision; those that have the same frequencies share these. Where the steps of the
/// independent variable are not even, the signal is made so; one that falls is read from its end; values that are no numbers
/// or, if this is wanted, hidden are bridged (SignalReader). A variable at the cells is transformed over the places halfway between
/// the points.
///
/// Results are written over earlier ones of the same source zones and variables if this is wanted. A zone whose number of frequencies
/// would change is replaced only if nothing else has values in it.
///
/// Refused: an empty set; zones or variables that do not exist; a zone that is disabled, not ordered with one dimension or
/// has fewer than four points; the independent variable among the dependent ones; one that is passive, constant, neither rising nor
/// falling, or at the cells while others are at the points; variables at points and at cells in one zone; values more than
/// half of which are not known.
class FourierTransform : public DataSetOperation
{
public:
    struct Choice
    {
        SpectrumChoice spectrum;
        bool obeyBlanking = false;     ///< hidden points and cells are left out, those of the active frame too
        bool replaceZones = false;     ///< results are written over the latest zone of the same source
        bool replaceVariables = false; ///< and to the latest variables of the same dependent variable
    };

    static constexpr std::int64_t fewestPoints = 4;

    /// @param independent one-based number, @param dependents, @param sources one-based numbers
    FourierTransform(DataSet const& dataSet, int independent, NumberSet dependents, NumberSet sources, Choice choice);

    std::string find(Pages const& pages) override;
    std::string name() const override { return "Discrete Fourier Transform"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;
    std::string remark() const override { return m_report; }

    /// The zones and variables with the results, when it has succeeded.
    NumberSet& resultZones() { return m_resultZones; }
    NumberSet& resultVariables() { return m_resultVariables; }

private:
    std::string reasonAgainstVariables() const;
    std::string reasonAgainstFields(int zone) const;
    ValueLocation_e locationIn(int zone) const;
    std::shared_ptr<SignalAxis const> makeAxis(int zone, Progress const& progress) const;
    void shareFrequencies(Progress const& progress);
    void prepareSpectra();
    std::string gapsIn(int variable, int zone) const;
    std::vector<AuxiliaryData::Item> notesOn(int zone, std::size_t place) const;
    std::vector<std::string> namesOfDependents() const;
    std::string report(double seconds) const;

    int m_independent;
    NumberSet m_dependents;
    NumberSet m_sources;
    Choice m_choice;
    ValueBlanking m_valueBlanking; // of the active frame
    std::shared_ptr<DeferredLoad> m_load;
    std::vector<std::shared_ptr<SignalAxis const>> m_axes; // of the sources
    std::vector<std::shared_ptr<Buffer>> m_frequencies;    // of the sources
    std::vector<Spectrum> m_spectra;                       // of all dependents of the first source, and so on
    NumberSet m_resultZones;
    NumberSet m_resultVariables;
    std::string m_report;
};

} // namespace veldraw::kernel
