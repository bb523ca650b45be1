#pragma once

#include <QRectF>
#include <QString>
#include <vtkContextItem.h>
#include <vtkNew.h>
#include <vtkTextProperty.h>

#include <array>
#include <vector>

class vtkRenderer;

namespace veldraw::app {

/// Numbers over places of a scene, all upright and none over another. A place behind something that is drawn has no number.
class ContourLabels : public vtkContextItem
{
public:
    vtkTypeMacro(ContourLabels, vtkContextItem) static ContourLabels* New();

    struct Label
    {
        std::array<double, 3> place; ///< in the scene
        QString text;
    };

    /// @param stage the renderer of the scene
    /// @param labels the most important ones first
    void show(vtkRenderer& stage, std::vector<Label> labels);

    void setPixelRatio(double ratio) { m_ratio = ratio; }

    /// How many of the labels had room in the picture that was drawn last.
    int paintedCount() const { return static_cast<int>(m_painted.size()); }

    /// On any device but the screen's, which knows what is hidden, the labels of the last picture are painted again.
    bool Paint(vtkContext2D* painter) override;

    ContourLabels(ContourLabels const&) = delete;
    ContourLabels& operator=(ContourLabels const&) = delete;

protected:
    ContourLabels();
    ~ContourLabels() override = default;

private:
    vtkRenderer* m_stage = nullptr;
    std::vector<Label> m_labels;
    double m_ratio = 1.0;
    struct Painted
    {
        QRectF box; // device pixels of the stage
        QString text;
    };

    void choose();

    std::vector<Painted> m_painted;
    vtkNew<vtkTextProperty> m_text;
};

} // namespace veldraw::app
