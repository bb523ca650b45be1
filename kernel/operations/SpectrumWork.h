#pragma once

#include "kernel/operations/SpectrumMaker.h"

#include <vector>

namespace veldraw::kernel {

/// The frequencies of spectra over an axis: cycles in a unit of the independent variable. @throws Interrupted, std::bad_alloc
std::shared_ptr<Buffer> frequenciesOf(SignalAxis const& axis, SpectrumChoice const& choice, Progress const& progress);

/// Makes the spectra of all signals on all cores: those of one length side by side, or those of several lengths where this keeps more
/// cores busy. A signal that cannot be transformed ends the transforms of the others.
///
/// The amplitude of a bin is its magnitude divided by the sum of the window's factors; without conjugates it is doubled but for the
/// zero bin and, of an even number of values, the last one, which have no conjugate. So a tone shows its amplitude.
/// The results do not depend on the number of threads.
/// @throws Interrupted, std::bad_alloc, std::runtime_error with the reason of a signal
void makeSpectra(std::vector<Spectrum>& spectra, SpectrumChoice const& choice, Progress& progress);

/// Units by which makeSpectra() advances the progress.
std::int64_t effortOf(std::vector<Spectrum> const& spectra);

/// Bytes that makeSpectra() takes at most at a time with the present number of threads, with its results and their frequencies.
double bytesOf(std::vector<Spectrum> const& spectra, SpectrumChoice const& choice);

} // namespace veldraw::kernel
