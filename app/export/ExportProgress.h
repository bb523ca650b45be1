#pragma once

#include <functional>

namespace veldraw::app {

/// How far the writing of a data set has come. It consists of parts that come one after the other, each with its share of the work.
class ExportProgress
{
public:
    /// Called with 0..1; its answer false means that nobody wants to wait any more.
    using Listener = std::function<bool(double)>;

    /// @param total work of all parts, in any unit
    ExportProgress(Listener listener, double total);

    /// Ends the part before this one and begins another. @throws ExportCancelled
    void begin(double work);

    /// Tells how far the part has come, from 0 to 1. @return false when the writing is to end
    bool show(double fraction);

    /// The same. @throws ExportCancelled
    void check(double fraction);

private:
    Listener m_listener;
    double m_total;
    double m_before = 0.0; // work of the parts that have ended
    double m_part = 0.0;
    bool m_isCancelled = false;
};

} // namespace veldraw::app
