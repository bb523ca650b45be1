#pragma once

#include "app/tour/UserDriver.h"

#include <QString>

#include <functional>
#include <vector>

class QDialog;

namespace veldraw::app {

/// A dialog with a help page, and what to enter in it for a picture that says something.
struct HelpSubject
{
    char const* action; ///< object name of its entry in the Data menu
    char const* topic;  ///< name of the page and of its pictures
    char const* button; ///< text of the button that does it; null where the plot looks the same afterwards
    std::function<void(QDialog&, UserDriver&)> enter;
};

/// All of them, over the sample of a bar that ends at x = 0.
std::vector<HelpSubject> const& helpSubjects();

} // namespace veldraw::app
