#pragma once

#include "kernel/compute/RealTransform.h"
#include "kernel/compute/SignalAxis.h"
#include "kernel/compute/SpectrumWindow.h"
#include "kernel/operations/WorkRooms.h"
#include "kernel/storage/Buffer.h"

#include <memory>
#include <string>

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

    /// Gives it amplitudes and phases of zeros. @throws std::bad_alloc
    void makeRoom(SpectrumChoice const& choice);
};

/// Makes spectra of signals of one length. Several threads may use it at the same time.
class SpectrumMaker
{
public:
    /// Makes the tables of the length. @throws Interrupted, std::bad_alloc
    SpectrumMaker(std::int64_t length, SpectrumChoice const& choice, Progress& progress);

    /// @param spectrum of a signal that is not of zeros
    /// @param ofReading is advanced while the signal is read
    /// @param ofRest is advanced after that
    /// @throws Interrupted, std::bad_alloc, std::runtime_error with the reason of the signal
    void make(Spectrum& spectrum, Progress& ofReading, Progress& ofRest);

    /// Units by which the progress is advanced: one is about the time that it takes to read a value.
    static std::int64_t effortOfTables(std::int64_t length) { return RealTransform::effortOfTables(length); }
    static std::int64_t effortOfReading(std::int64_t length) { return length; }
    static std::int64_t effortOfRest(std::int64_t length) { return RealTransform::effortOfRun(length) + length; }

    /// Bytes that are taken for the tables, for each spectrum at the same time, and for each thread beside that.
    static double bytesOfTables(std::int64_t length, SpectrumChoice const& choice);
    static double bytesOfRoom(std::int64_t length);
    static double bytesOfThread(std::int64_t length) { return RealTransform::bytesOfThread(length); }

private:
    double read(Spectrum& spectrum, double* signal, Progress& progress) const;
    void write(RealTransform::Bin const* bins, double scale, Spectrum& spectrum, Progress& progress) const;
    void writeLonely(RealTransform::Bin const* bins, double share, double backScale, double* amplitudes) const;
    void writeConjugates(double* amplitudes, double* phases, Progress const& progress) const;

    std::int64_t m_length;
    SpectrumChoice m_choice;
    SpectrumWindow m_window;
    std::unique_ptr<RealTransform const> m_transform;
    WorkRooms m_rooms;
};

} // namespace veldraw::kernel
