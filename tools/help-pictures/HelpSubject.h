#pragma once

#include "app/import/reading/Deferral.h"
#include "tests/tour/UserDriver.h"

#include <QString>

#include <functional>
#include <vector>

class QDialog;

namespace veldraw::app {

/// A dialog with a help page, and what to enter in it for a picture that says something.
struct HelpSubject
{
    char const* action; ///< object name of its entry in the Data menu
    char const* topic;  ///< name of its pictures, which begins with that of the page
    char const* button; ///< text of the button that does it; null where the plot looks the same afterwards
    std::function<void(QDialog&, tests::UserDriver&)> enter;
    char const* sample = "tetra.vtu"; ///< the file that is open
    Deferral deferral = Deferral::Auto;
};

/// All of them. Those of one file follow each other: the bar that ends at x = 0 for most, the rainfall for interpolations, an island
/// to triangulate, two tones in time to smooth and to transform, a line for what is about long tables.
std::vector<HelpSubject> const& helpSubjects();

} // namespace veldraw::app
