#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Tells when what is being typed into a widget is given up, as its window goes off the screen: by Escape, by Close or by
/// any other way. It tells before the widget itself takes notice, since a spin box takes its text when it is hidden.
class AbandonedInputFilter : public QObject
{
public:
    /// @param abandoned puts back what was there before; may be called more than once
    AbandonedInputFilter(QWidget& widget, std::function<void()> const& abandoned);
    ~AbandonedInputFilter() override;

    /// Whether an event comes to a widget because its window goes off the screen.
    static bool isAbandoned(QWidget const& widget, QEvent const& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> const m_abandoned;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
