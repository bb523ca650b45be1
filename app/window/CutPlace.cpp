#include "app/window/CutPlace.h"

#include "app/window/CutDescription.h"
#include "app/window/NumberChooser.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

constexpr int placesOfSlider = 1000;

// Nothing but another number is written to a box, so that what is being typed stays.
void showNumber(ui::QScientificSpinBox& box, double number)
{
    if (box.value() < number || box.value() > number)
        box.setValue(number);
}

} // namespace

CutPlace::CutPlace(QWidget* parent)
    : QWidget(parent)
    , m_positionLabel(new QLabel)
    , m_slider(new QSlider(Qt::Horizontal))
    , m_position(newBox("cutPosition", QStringLiteral("Position of the slice"),
                        [](kernel::Cut& cut) -> double& { return cut.position; }))
    , m_variable(new NumberChooser(QStringLiteral("cutVariable"), QStringLiteral("Variable of the iso-surface")))
    , m_form(new QFormLayout(this))
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_slider->setObjectName(QStringLiteral("cutSlider"));
    m_slider->setAccessibleName(QStringLiteral("Position of the slice"));
    m_form->addRow(QStringLiteral("Variable:"), m_variable);
    m_positionLabel->setBuddy(m_position);
    m_form->addRow(m_positionLabel, m_position);
    m_form->addRow(m_slider);
    m_normal = newBoxes(*m_form, "cutNormal", QStringLiteral("Normal"), &kernel::Cut::normal);
    m_origin = newBoxes(*m_form, "cutOrigin", QStringLiteral("Origin"), &kernel::Cut::origin);
    connect(m_slider, &QSlider::sliderPressed, this, &CutPlace::dragBegins);
    connect(m_slider, &QSlider::sliderReleased, this, &CutPlace::dragEnds);
    // Of what the user does alone, not of what show() sets.
    connect(m_slider, &QSlider::actionTriggered, this, &CutPlace::takeSlider);
    connect(m_variable, &NumberChooser::chosen, this, &CutPlace::variableChosen);
    setEnabled(false);
}

CutPlace::Box* CutPlace::newBox(char const* name, QString const& accessibleText,
                                std::function<double&(kernel::Cut&)> const& place)
{
    auto* const box = new Box;
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(accessibleText);
    box->setMinimumWidth(56);
    connect(box, &Box::editingFinished, this, [this, box, place] {
        double const before = place(m_cut);
        double const number = box->value();
        if (before < number || before > number)
            Q_EMIT altered([place, number](kernel::Cut& cut) { place(cut) = number; });
    });
    auto const askedFor = [this, box, place](int steps) { step(*box, place, steps); };
    box->connectIncrement(askedFor);
    box->connectDecrement([askedFor](int steps) { askedFor(-std::abs(steps)); });
    return box;
}

CutPlace::Boxes CutPlace::newBoxes(QFormLayout& form, char const* name, QString const& text,
                                   std::array<double, 3> kernel::Cut::*member)
{
    Boxes boxes{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        QString const label = text + QLatin1Char(' ') + QLatin1Char("XYZ"[axis]);
        QByteArray const boxName = QByteArray(name) + "XYZ"[axis];
        boxes[axis] = newBox(boxName.constData(), label,
                             [member, axis](kernel::Cut& cut) -> double& { return (cut.*member)[axis]; });
        form.addRow(label + QLatin1Char(':'), boxes[axis]);
    }
    return boxes;
}

// A hundredth of the way, or the next index.
double CutPlace::stepWidth() const
{
    return m_cut.isOfIndex() ? 1.0 : (m_limits.max - m_limits.min) / 100.0;
}

void CutPlace::step(Box& box, std::function<double&(kernel::Cut&)> const& place, int steps)
{
    if (&box != m_position)
        return;
    double const number = std::clamp(m_cut.position + steps * stepWidth(), m_limits.min, m_limits.max);
    Q_EMIT altered([place, number](kernel::Cut& cut) { place(cut) = number; });
}

void CutPlace::takeSlider()
{
    double const share = static_cast<double>(m_slider->sliderPosition()) / std::max(1, m_slider->maximum());
    double const number = m_cut.isOfIndex() ? m_limits.min + m_slider->sliderPosition()
                                            : (1.0 - share) * m_limits.min + share * m_limits.max;
    Q_EMIT altered([number](kernel::Cut& cut) { cut.position = number; });
}

void CutPlace::show(kernel::Cut const* cut, kernel::Frame const* frame,
                    std::vector<std::pair<int, QString>> const& variables)
{
    bool const isShown = cut && frame;
    setEnabled(isShown);
    m_cut = isShown ? *cut : kernel::Cut();
    m_limits = isShown ? kernel::limitsOf(m_cut, *frame) : kernel::CutLimits();
    bool const isPlane = isShown && m_cut.kind == kernel::CutKind::Plane;
    bool const isSurface = isShown && m_cut.kind == kernel::CutKind::IsoSurface;
    auto const setShown = [this](QWidget& field, bool on) {
        field.setVisible(on);
        m_form->labelForField(&field)->setVisible(on);
    };
    for (std::size_t axis = 0; axis < 3; ++axis) {
        setShown(*m_normal[axis], isPlane);
        setShown(*m_origin[axis], isPlane);
        showNumber(*m_normal[axis], m_cut.normal[axis]);
        showNumber(*m_origin[axis], m_cut.origin[axis]);
    }
    setShown(*m_variable, isSurface);
    if (isSurface)
        m_variable->show(variables, frame->dataSet ? frame->dataSet->variableNumber(m_cut.variable) : 0);
    QString text = isShown ? CutDescription::positionText(m_cut, *frame) + QLatin1Char(':') : QString();
    m_positionLabel->setText(text.replace(QLatin1Char('&'), QLatin1String("&&"))); // no mnemonic in a variable's name
    showNumber(*m_position, m_cut.position);
    double const width = m_limits.max - m_limits.min;
    int const places = m_cut.isOfIndex() ? static_cast<int>(std::min(width, 1e9)) : placesOfSlider;
    m_slider->setRange(0, places);
    m_slider->setPageStep(std::max(1, places / 10));
    m_slider->setSingleStep(std::max(1, m_cut.isOfIndex() ? 1 : places / 100));
    if (!m_slider->isSliderDown())
        m_slider->setValue(width > 0.0 ? static_cast<int>(std::lround(
                                             std::clamp((m_cut.position - m_limits.min) / width, 0.0, 1.0) * places))
                                       : 0);
}

} // namespace veldraw::app
