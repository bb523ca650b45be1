#include "dialogs/spreadsheet/WindowScrollBar.h"

#include "dialogs/spreadsheet/TableWindow.h"

#include <QAbstractScrollArea>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Enough for a slider on any screen, and far from the limits of int.
constexpr unsigned long long mostUnits = 1000000000;

} // namespace

WindowScrollBar::WindowScrollBar(Qt::Orientation direction, TableWindow& window, QAbstractScrollArea& view)
    : QScrollBar(direction, &view)
    , m_window(window)
    , m_ownBarOfView(direction == Qt::Vertical ? *view.verticalScrollBar() : *view.horizontalScrollBar())
{
    setObjectName(direction == Qt::Vertical ? QStringLiteral("dataSpreadsheet_Row_ScrollBar")
                                            : QStringLiteral("dataSpreadsheet_Column_ScrollBar"));
    view.addScrollBarWidget(this, direction == Qt::Vertical ? Qt::AlignBottom : Qt::AlignRight);
    connect(this, &QScrollBar::actionTriggered, this, &WindowScrollBar::onActionTriggered);
    connect(this, &QScrollBar::valueChanged, this, &WindowScrollBar::onValueChanged);
    connect(&window, &TableWindow::positionChanged, this, &WindowScrollBar::follow);
    follow();
}

WindowScrollBar::~WindowScrollBar() = default;

void WindowScrollBar::onActionTriggered(int action)
{
    unsigned long long const position = m_window.position(orientation());
    auto const page = static_cast<unsigned long long>(m_window.pageSize(orientation()));
    unsigned long long target = position;
    switch (action) {
    case SliderSingleStepAdd:
        target = position + 1;
        break;
    case SliderSingleStepSub:
        target = position - std::min(position, 1ull);
        break;
    case SliderPageStepAdd:
        target = position + page;
        break;
    case SliderPageStepSub:
        target = position - std::min(position, page);
        break;
    case SliderToMinimum:
        target = 0;
        break;
    case SliderToMaximum:
        target = m_window.total(orientation());
        break;
    case SliderMove:
        target = positionOf(sliderPosition());
        break;
    default:
        return;
    }
    m_window.scrollTo(orientation(), target);
    if (action != SliderMove)
        setSliderPosition(sliderOf(m_window.position(orientation())));
}

// "Scroll here" of the bar's own menu and assistive programs set the value without an action.
void WindowScrollBar::onValueChanged(int slider)
{
    if (slider != sliderOf(m_window.position(orientation())))
        m_window.scrollTo(orientation(), positionOf(slider));
}

void WindowScrollBar::follow()
{
    bool const isNeeded = !m_window.showsAll(orientation());
    setVisible(isNeeded);
    m_ownBarOfView.setVisible(!isNeeded);
    if (!isNeeded)
        return;
    // The value is the view's here, also while the range that cuts it changes.
    QSignalBlocker const blocker(this);
    setRange(0, static_cast<int>(std::min(m_window.lastPosition(orientation()), mostUnits)));
    setPageStep(m_window.pageSize(orientation()));
    // A slider that is being dragged stays under the mouse.
    if (!isSliderDown())
        setValue(sliderOf(m_window.position(orientation())));
}

int WindowScrollBar::sliderOf(unsigned long long position) const
{
    unsigned long long const last = m_window.lastPosition(orientation());
    if (last <= mostUnits)
        return static_cast<int>(std::min(position, last));
    return static_cast<int>(static_cast<long double>(position) / static_cast<long double>(last) *
                            static_cast<long double>(mostUnits));
}

unsigned long long WindowScrollBar::positionOf(int slider) const
{
    unsigned long long const last = m_window.lastPosition(orientation());
    auto const units = static_cast<unsigned long long>(slider);
    if (last <= mostUnits)
        return units;
    if (units >= mostUnits)
        return m_window.total(orientation());
    return static_cast<unsigned long long>(std::round(
        static_cast<long double>(units) / static_cast<long double>(mostUnits) * static_cast<long double>(last)));
}

} // namespace veldraw::sdk::ui::propertymanager
