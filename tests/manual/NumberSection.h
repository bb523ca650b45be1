#pragma once

#include "tests/manual/GallerySection.h"

namespace veldraw::tests {

/// Spin boxes: whole numbers, 64-bit indices, floating-point numbers, and an angle in the unit of one's choice.
class NumberSection : public GallerySection
{
public:
    NumberSection();

private:
    void addAngle();
};

} // namespace veldraw::tests
