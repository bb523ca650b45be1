#pragma once

#include "tests/tour/TourContext.h"

#include <QString>

namespace veldraw::tests {

/// Saves three thousand million rows as text, which takes minutes on any machine, and changes its mind: a progress window comes,
/// Cancel is clicked, and no file is left.
class CancelledSaveStation
{
public:
    /// The long table is open, its coordinate not loaded. @param out folder of the file that does not come into being
    CancelledSaveStation(TourContext& context, QString const& out);

    void run();

private:
    bool deleteCoordinate();
    void saveAndCancel();
    bool pressCancel();

    TourContext& m_tour;
    QString m_file;
    bool m_wasCancelled = false;
};

} // namespace veldraw::tests
