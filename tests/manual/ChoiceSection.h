#pragma once

#include "tests/manual/GallerySection.h"

class QLayout;

namespace veldraw::tests {

/// Combo boxes over fixed lists, radio buttons, check boxes, a button, and a control that two rules govern.
class ChoiceSection : public GallerySection
{
public:
    ChoiceSection();

private:
    void addRadioButtons();
    void addCheckBoxes();
    void addButton();
    void addGovernedField();
};

} // namespace veldraw::tests
