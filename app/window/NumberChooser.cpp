#include "app/window/NumberChooser.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int mostMeasured = 2000; // entries; Qt looks at each of them

} // namespace

NumberChooser::NumberChooser(QString const& name, QString const& accessibleText, QWidget* parent)
    : QComboBox(parent)
{
    setObjectName(name);
    setAccessibleName(accessibleText);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    view()->setTextElideMode(Qt::ElideMiddle);
    connect(this, QOverload<int>::of(&QComboBox::activated), this, [this] { Q_EMIT chosen(number()); });
}

void NumberChooser::show(Choices const& choices, int number)
{
    QSignalBlocker const silent(this);
    if (choices != m_choices) {
        m_choices = choices;
        clear();
        for (auto const& [value, text] : choices)
            addItem(text, value);
    }
    setCurrentIndex(findData(number));
    QString const text = currentText();
    setToolTip(QStringLiteral("<p style='white-space:pre'>%1<br>%2</p>")
                   .arg(accessibleName().toHtmlEscaped(), text.toHtmlEscaped()));
}

QString NumberChooser::shownText() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    int const room = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width();
    return fontMetrics().elidedText(currentText(), Qt::ElideMiddle, room - 2);
}

void NumberChooser::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shownText();
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void NumberChooser::showPopup()
{
    if (count() <= mostMeasured) {
        int const wanted = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
        view()->setMinimumWidth(std::min(wanted, screen()->availableSize().width() * 2 / 3));
    }
    QComboBox::showPopup();
}

void NumberChooser::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace veldraw::app
