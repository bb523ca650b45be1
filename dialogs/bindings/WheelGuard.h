#pragma once

#include <QObject>

class QWidget;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Keeps the wheel from changing a value by accident: while a combo box or a spin box has no focus, a wheel notch over
/// it changes nothing and goes on to the parent, so that what is around it scrolls. Nor does the wheel give the widget
/// the focus. With the focus the wheel works as ever.
///
/// Bindings make one for each widget whose value the wheel changes: `new WheelGuard(*spinBox)`. It belongs to the widget.
class WheelGuard : public QObject
{
public:
    explicit WheelGuard(QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
