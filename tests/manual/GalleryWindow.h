#pragma once

#include "tests/manual/GalleryRow.h"

#include <QWidget>

#include <memory>
#include <vector>

class QVBoxLayout;

namespace veldraw::tests {

class GallerySection;

/// Every kind of binding over live properties, for eyes and hands: use a control and see what its property holds. "Start
/// values" sets all properties back, which shows the way from the properties to the controls.
class GalleryWindow : public QWidget
{
public:
    GalleryWindow();
    ~GalleryWindow() override;

    /// All rows, in the order in which they are seen.
    std::vector<GalleryRow> rows() const;

private:
    QWidget* heading();
    QVBoxLayout* column(std::vector<GallerySection*> const& sections);
    void reset();

    std::vector<GallerySection*> m_sections; // children of this window
    std::unique_ptr<QObject> m_resetBinding;
};

} // namespace veldraw::tests
