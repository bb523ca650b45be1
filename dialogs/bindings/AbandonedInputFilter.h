#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Calls a function when the window of a widget disappears from the screen, so that unfinished text is dropped. The call
/// comes before the widget's own event, at which a spin box would accept its text.
class AbandonedInputFilter : public QObject
{
public:
    /// @param abandoned restores the former text; may be called more than once
    AbandonedInputFilter(QWidget& widget, std::function<void()> const& abandoned);
    ~AbandonedInputFilter() override;

    /// Whether a widget gets an event because its window disappears from the screen.
    static bool isAbandoned(QWidget const& widget, QEvent const& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> const m_abandoned;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
