#include "dialogs/models/ReadingAsTold.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

int ReadingAsTold::s_count = 0;

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
