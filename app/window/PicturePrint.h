#pragma once

#include "app/window/PictureFile.h"

class QPrinter;

namespace veldraw::app {

/// Paints a picture on a sheet of a printer, as large as the sheet's margins allow and in its middle.
/// @return why that was not possible; empty when it was
QString printPicture(PagePicture const& picture, QPrinter& printer);

} // namespace veldraw::app
