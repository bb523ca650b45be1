#pragma once

#include "dialogs/widgets/QScientificSpinBox.h"
#include "kernel/frames/CutDefaults.h"
#include "kernel/frames/Frame.h"

#include <QSlider>
#include <QWidget>

#include <array>
#include <functional>

class QFormLayout;
class QLabel;

namespace veldraw::app {

class NumberChooser;

/// The fields for the place of one cut: a slider and a number for its position, and normal, origin or variable where its kind has them.
/// What the user does is told as an alteration; shown numbers follow by show() alone.
class CutPlace : public QWidget
{
    Q_OBJECT

public:
    using Alteration = std::function<void(kernel::Cut&)>;

    explicit CutPlace(QWidget* parent = nullptr);

    /// Shows a cut of a frame; null for none. @param variables to choose from
    void show(kernel::Cut const* cut, kernel::Frame const* frame,
              std::vector<std::pair<int, QString>> const& variables);

    QSlider& slider() const { return *m_slider; }

Q_SIGNALS:
    void altered(veldraw::app::CutPlace::Alteration const& alter);

    /// The user begins to drag the slider, and lets it go.
    void dragBegins();
    void dragEnds();

    /// The user has chosen the variable with a one-based number.
    void variableChosen(int variable);

private:
    using Box = ui::QScientificSpinBox;
    using Boxes = std::array<Box*, 3>;

    Box* newBox(char const* name, QString const& accessibleText, std::function<double&(kernel::Cut&)> const& place);
    Boxes newBoxes(QFormLayout& form, char const* name, QString const& text,
                   std::array<double, 3> kernel::Cut::*member);
    void step(Box& box, std::function<double&(kernel::Cut&)> const& place, int steps);
    void takeSlider();
    double stepWidth() const;

    QLabel* m_positionLabel;
    QSlider* m_slider;
    Box* m_position;
    Boxes m_normal;
    Boxes m_origin;
    NumberChooser* m_variable;
    QFormLayout* m_form;
    kernel::Cut m_cut; // as it is shown
    kernel::CutLimits m_limits;
};

} // namespace veldraw::app
