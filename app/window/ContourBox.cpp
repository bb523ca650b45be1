#include "app/window/ContourBox.h"

#include "app/plot/ContourFlood.h"
#include "app/window/NumberChooser.h"
#include "dialogs/widgets/QScientificSpinBox.h"

#include <QEvent>
#include <QFormLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <cmath>

namespace veldraw::app {

namespace {

NumberChooser::Choices mapChoices()
{
    return {{0, QStringLiteral("Viridis")},
            {1, QStringLiteral("Inferno")},
            {2, QStringLiteral("Cool to warm")},
            {3, QStringLiteral("Rainbow")},
            {4, QStringLiteral("Grey")}};
}

// Nothing but another number is written to a box, so that what is being typed stays.
void showLimit(ui::QScientificSpinBox& box, double number)
{
    if (box.value() < number || box.value() > number)
        box.setValue(number);
}

} // namespace

ContourBox::ContourBox(QWidget* parent)
    : QGroupBox(QStringLiteral("Contour colours"), parent)
    , m_map(new NumberChooser(QStringLiteral("contourMap"), QStringLiteral("Colour map")))
    , m_min(newLimit("contourMin", QStringLiteral("Lowest value of the colours"), &kernel::ContourColours::min))
    , m_max(newLimit("contourMax", QStringLiteral("Highest value of the colours"), &kernel::ContourColours::max))
    , m_asShown(new QPushButton(QStringLiteral("Values Shown")))
    , m_levels(new QSpinBox)
{
    m_asShown->setObjectName(QStringLiteral("contourAsShown"));
    m_asShown->setToolTip(QStringLiteral("Have the colours go over the values that are shown"));
    m_levels->setObjectName(QStringLiteral("contourLevels"));
    m_levels->setAccessibleName(QStringLiteral("Number of levels"));
    m_levels->setRange(0, kernel::ContourColours::mostLevels);
    m_levels->setSpecialValueText(QStringLiteral("round steps"));
    m_levels->setKeyboardTracking(false);
    m_levels->setToolTip(QStringLiteral("Number of bands of a contour in bands; with 0 they end at round numbers"));
    for (QAbstractSpinBox* const box : {static_cast<QAbstractSpinBox*>(m_min), static_cast<QAbstractSpinBox*>(m_max),
                                        static_cast<QAbstractSpinBox*>(m_levels)}) {
        box->setFocusPolicy(Qt::StrongFocus);
        box->installEventFilter(this);
    }
    auto* const form = new QFormLayout(this);
    form->addRow(QStringLiteral("Colours:"), m_map);
    form->addRow(QStringLiteral("From:"), m_min);
    form->addRow(QStringLiteral("To:"), m_max);
    form->addRow(QString(), m_asShown);
    form->addRow(QStringLiteral("Levels:"), m_levels);
    connect(m_map, &NumberChooser::chosen, this, [this](int map) {
        kernel::ContourColours colours = m_kept;
        colours.map = static_cast<kernel::ColourMapKind>(map);
        Q_EMIT chosen(colours);
    });
    connect(m_asShown, &QPushButton::clicked, this, [this] {
        kernel::ContourColours colours = m_kept;
        colours.isFixed = false;
        Q_EMIT chosen(colours);
    });
    connect(m_levels, QOverload<int>::of(&QSpinBox::valueChanged), this, &ContourBox::takeLevels);
}

// The wheel scrolls past a field that has not the focus.
bool ContourBox::eventFilter(QObject* watched, QEvent* event)
{
    auto const* const field = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Wheel && field && !field->hasFocus()) {
        event->ignore();
        return true;
    }
    return QGroupBox::eventFilter(watched, event);
}

ContourBox::Box* ContourBox::newLimit(char const* name, QString const& text, double kernel::ContourColours::*member)
{
    auto* const box = new Box;
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(text);
    box->setMinimumWidth(56);
    connect(box, &Box::editingFinished, this, [this, box, member] { takeLimit(*box, member); });
    box->connectIncrement([this, member](int steps) { step(member, steps); });
    box->connectDecrement([this, member](int steps) { step(member, -std::abs(steps)); });
    return box;
}

// A limit that passes the other one takes it along, so that any range is typed number by number.
void ContourBox::takeLimit(Box const& box, double kernel::ContourColours::*member)
{
    double const number = box.value();
    double const before = m_shown.*member;
    if (!(number < before) && !(number > before))
        return;
    double const width = m_shown.max > m_shown.min ? m_shown.max - m_shown.min : 1.0;
    bool const isMin = member == &kernel::ContourColours::min;
    if (isMin)
        setLimits(number, number < m_shown.max ? m_shown.max : number + width);
    else
        setLimits(number > m_shown.min ? m_shown.min : number - width, number);
}

// A hundredth of the range, but not up to the other limit.
void ContourBox::step(double kernel::ContourColours::*member, int steps)
{
    kernel::ContourColours altered = m_shown;
    altered.*member += steps * (m_shown.max - m_shown.min) / 100.0;
    if (altered.min < altered.max)
        setLimits(altered.min, altered.max);
}

void ContourBox::setLimits(double min, double max)
{
    kernel::ContourColours colours = m_kept;
    colours.isFixed = true;
    colours.min = min;
    colours.max = max;
    Q_EMIT chosen(colours);
}

void ContourBox::takeLevels(int levels)
{
    kernel::ContourColours colours = m_kept;
    colours.levels = levels;
    Q_EMIT chosen(colours);
}

void ContourBox::show(kernel::Frame const& frame)
{
    FieldLook look;
    kernel::NumberSet const zones = frame.zonesInSight();
    ContourFlood::set(look, frame, {zones.begin(), zones.end()});
    bool const hasColours = look.contourVariable > 0;
    setEnabled(hasColours);
    m_kept = frame.contourColours;
    m_shown = m_kept;
    if (!m_shown.isFixed && hasColours) {
        m_shown.min = look.isLog ? std::pow(10.0, look.contourMin) : look.contourMin;
        m_shown.max = look.isLog ? std::pow(10.0, look.contourMax) : look.contourMax;
    }
    m_map->show(mapChoices(), static_cast<int>(m_shown.map));
    showLimit(*m_min, m_shown.min);
    showLimit(*m_max, m_shown.max);
    m_asShown->setEnabled(m_shown.isFixed);
    QSignalBlocker const silent(m_levels);
    m_levels->setValue(m_shown.levels);
    m_levels->setEnabled(frame.contourInBands);
}

} // namespace veldraw::app
