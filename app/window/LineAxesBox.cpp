#include "app/window/LineAxesBox.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <optional>

namespace veldraw::app {

namespace {

using Kind = kernel::LineAxisKind;

char const* const axisNames[] = {"X", "Y", "Y2"};

// In as many digits as it takes to read the same number back.
QString textOf(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

// Nothing but another text is written to a field, so that what is being typed stays.
void showText(QLineEdit& field, QString const& text)
{
    if (!field.isModified() && field.text() != text)
        field.setText(text);
}

// The number of a field; nothing where there is none.
std::optional<double> numberIn(QLineEdit const& field)
{
    bool isNumber = false;
    double const number = QLocale::c().toDouble(field.text().trimmed(), &isNumber);
    return isNumber && std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

// The range of the curves along an axis, as far as the kernel knows it.
kernel::LineAxis rangeOfCurves(kernel::Frame const& frame, Kind kind)
{
    kernel::LineAxis whole;
    bool isKnown = false;
    for (kernel::LineMap const& map : frame.lineMaps) {
        bool const isOnAxis = kind == Kind::X || map.isOnSecondAxis == (kind == Kind::Y2);
        auto const zone = frame.dataSet->zone(frame.dataSet->zoneNumber(map.zone));
        int const variable = frame.dataSet->variableNumber(kind == Kind::X ? map.xVariable : map.yVariable);
        if (!map.active || !isOnAxis || !zone || variable == 0)
            continue;
        kernel::ValueRange const part = zone->range(variable);
        if (!part.isValid())
            continue;
        whole.min = isKnown ? std::min(whole.min, part.min) : part.min;
        whole.max = isKnown ? std::max(whole.max, part.max) : part.max;
        isKnown = true;
    }
    return whole;
}

} // namespace

LineAxesBox::LineAxesBox(QWidget* parent)
    : QGroupBox(QStringLiteral("Axes"), parent)
    , m_fields{}
    , m_title(newField(QStringLiteral("plotTitle"), QStringLiteral("Title of the plot")))
    , m_fit(new QPushButton(QStringLiteral("All Values")))
{
    auto* const form = new QFormLayout(this);
    for (int n = 0; n < kernel::lineAxisCount; ++n) {
        auto const kind = static_cast<Kind>(n);
        QString const axis = QString::fromLatin1(axisNames[n]);
        Fields& fields = m_fields[static_cast<std::size_t>(n)];
        fields.min = newField(QStringLiteral("axisMin") + axis, QStringLiteral("Start of the %1 axis").arg(axis));
        fields.max = newField(QStringLiteral("axisMax") + axis, QStringLiteral("End of the %1 axis").arg(axis));
        fields.title = newField(QStringLiteral("axisTitle") + axis, QStringLiteral("Title of the %1 axis").arg(axis));
        auto* const limits = new QHBoxLayout;
        for (QLineEdit* const limit : {fields.min, fields.max})
            connect(limit, &QLineEdit::editingFinished, this, [this, kind] { takeLimits(kind); });
        limits->addWidget(fields.min);
        limits->addWidget(new QLabel(QStringLiteral("to")));
        limits->addWidget(fields.max);
        connect(fields.title, &QLineEdit::editingFinished, this, [this, kind] { takeTitle(kind); });
        form->addRow(axis + QStringLiteral(" from:"), limits);
        form->addRow(axis + QStringLiteral(" title:"), fields.title);
        fields.title->setPlaceholderText(QStringLiteral("names of the variables"));
    }
    m_fit->setObjectName(QStringLiteral("axesFit"));
    m_fit->setToolTip(QStringLiteral("Have all axes go over the values of their curves"));
    m_title->setPlaceholderText(QStringLiteral("none"));
    form->addRow(QString(), m_fit);
    form->addRow(QStringLiteral("Plot title:"), m_title);
    connect(m_fit, &QPushButton::clicked, this, &LineAxesBox::fitWanted);
    connect(m_title, &QLineEdit::editingFinished, this, [this] {
        m_title->setModified(false);
        if (m_title->text() != QString::fromStdString(m_kept.title))
            Q_EMIT titleChosen(m_title->text());
    });
}

QLineEdit* LineAxesBox::newField(QString const& name, QString const& text)
{
    auto* const field = new QLineEdit;
    field->setObjectName(name);
    field->setAccessibleName(text);
    field->setToolTip(text);
    field->setMinimumWidth(48);
    return field;
}

// An end that is empty is that of the values. One that passes the other takes it along, so that any range is typed number by number.
void LineAxesBox::takeLimits(Kind kind)
{
    Fields const& fields = m_fields[static_cast<std::size_t>(kind)];
    if (!fields.min->isModified() && !fields.max->isModified())
        return;
    bool const isMin = fields.min->isModified();
    QLineEdit const& typed = *(isMin ? fields.min : fields.max);
    bool const isEmptied = typed.text().trimmed().isEmpty();
    bool const isNonsense = !isEmptied && !numberIn(typed);
    kernel::LineAxis axis = m_kept.at(kind);
    kernel::LineAxis const& values = axis.isFixed ? axis : m_values[static_cast<std::size_t>(kind)];
    double const width = values.max > values.min ? values.max - values.min : 1.0;
    double const min = numberIn(*fields.min).value_or(values.min);
    double const max = numberIn(*fields.max).value_or(values.max);
    fields.min->setModified(false);
    fields.max->setModified(false);
    if (isNonsense)
        return showLimits(kind);
    axis.isFixed = !isEmptied;
    if (axis.isFixed) {
        axis.min = isMin || min < max ? min : max - width;
        axis.max = !isMin || min < max ? max : min + width;
    }
    Q_EMIT chosen(kind, axis);
}

void LineAxesBox::takeTitle(Kind kind)
{
    QLineEdit& field = *m_fields[static_cast<std::size_t>(kind)].title;
    kernel::LineAxis axis = m_kept.at(kind);
    field.setModified(false);
    if (field.text() == QString::fromStdString(axis.title))
        return;
    axis.title = field.text().toStdString();
    Q_EMIT chosen(kind, axis);
}

void LineAxesBox::showLimits(Kind kind)
{
    auto const n = static_cast<std::size_t>(kind);
    kernel::LineAxis const& axis = m_kept.at(kind);
    kernel::LineAxis const& values = m_values[n];
    showText(*m_fields[n].min, axis.isFixed ? textOf(axis.min) : QString());
    showText(*m_fields[n].max, axis.isFixed ? textOf(axis.max) : QString());
    m_fields[n].min->setPlaceholderText(textOf(values.min));
    m_fields[n].max->setPlaceholderText(textOf(values.max));
}

void LineAxesBox::show(kernel::Frame const& frame)
{
    m_kept = frame.lineAxes;
    bool isFixed = false;
    for (int n = 0; n < kernel::lineAxisCount; ++n) {
        auto const kind = static_cast<Kind>(n);
        m_values[static_cast<std::size_t>(n)] = rangeOfCurves(frame, kind);
        showLimits(kind);
        showText(*m_fields[static_cast<std::size_t>(n)].title, QString::fromStdString(m_kept.at(kind).title));
        isFixed = isFixed || m_kept.at(kind).isFixed;
    }
    showText(*m_title, QString::fromStdString(m_kept.title));
    m_fit->setEnabled(isFixed);
}

} // namespace veldraw::app
