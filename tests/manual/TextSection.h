#pragma once

#include "tests/manual/GallerySection.h"

namespace veldraw::tests {

/// Fields of text and numbers, a multi-line text, and a label that repeats one of them.
class TextSection : public GallerySection
{
public:
    TextSection();
};

} // namespace veldraw::tests
