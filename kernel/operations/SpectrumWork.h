#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/SignalAxis.h"
#include "kernel/compute/SpectrumWindow.h"
#include "kernel/storage/Buffer.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// How spectra are made of signals, whatever zones and variables these are of.
struct SpectrumChoice
{
    WindowFunction_e window = WindowFunction_Rectangular;
    bool includeConjugates = false; ///< bins of negative frequencies as well, with the amplitudes not doubled

    /// Bins 0 to count / 2, or all: those of negative frequencies follow, from the lowest frequency on.
    std::int64_t binCount(std::int64_t count) const { return includeConjugates ? count : count / 2 + 1; }
};

/// A signal and its spectrum.
struct Spectrum
{
    std::shared_ptr<Buffer const> values;   ///< of the signal; null for one of zeros
    std::shared_ptr<SignalAxis const> axis; ///< without a fault
    std::string reasonAgainstGaps;          ///< what is thrown when more than half of the values are not known

    std::shared_ptr<Buffer> amplitudes; ///< made by makeSpectra(), as the next ones
    std::shared_ptr<Buffer> phases;     ///< degrees, of a cosine at the lowest place
    std::int64_t bridged = 0;           ///< values that were not known
};

/// The frequencies of spectra over an axis: cycles in a unit of the independent variable. @throws Interrupted, std::bad_alloc
std::shared_ptr<Buffer> frequenciesOf(SignalAxis const& axis, SpectrumChoice const& choice, Progress const& progress);

/// Makes the spectra of all signals on all cores: those of one length side by side, or those of several lengths where there are
/// more of these.
///
/// The amplitude of a bin is its magnitude divided by the sum of the window's factors; without conjugates it is doubled but for the
/// zero bin and, of an even number of values, the last one, which have no conjugate. So a tone shows its amplitude.
/// The results do not depend on the number of threads.
/// @throws Interrupted, std::bad_alloc, std::runtime_error with the reason of a signal
void makeSpectra(std::vector<Spectrum>& spectra, SpectrumChoice const& choice, Progress& progress);

/// Units by which makeSpectra() advances the progress.
std::int64_t effortOf(std::vector<Spectrum> const& spectra);

/// Bytes that makeSpectra() takes at most at a time, with its results and their frequencies.
double bytesOf(std::vector<Spectrum> const& spectra, SpectrumChoice const& choice);

} // namespace veldraw::kernel
