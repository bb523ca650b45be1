#pragma once

#include <QPointer>

class QObject;

namespace veldraw::sdk::ui::dialogs::propertybindings {

class WidgetBallot;

/// One of several votes that decide whether a widget, or an action of a menu, is enabled or visible.
///
/// A widget may follow several rules: the dialog's, its own, and that of a binding. Each of them holds a vote, and the widget
/// is enabled, or visible, only if all votes say yes. A destroyed vote no longer counts; after the last one the widget keeps
/// its state.
class WidgetVote
{
public:
    enum Effect
    {
        Enabled,
        Visible
    };

    /// @param target a `QWidget` or a `QAction`; anything else, null included, is left alone. It may die before the
    /// vote. The vote counts from the first `cast` on.
    WidgetVote(QObject* target, Effect effect);
    ~WidgetVote();
    WidgetVote(WidgetVote const&) = delete;
    WidgetVote& operator=(WidgetVote const&) = delete;

    void cast(bool yes);

    /// A vote of somebody who holds no `WidgetVote` and is known by an address, such as a property whose state several
    /// places of a binding apply. The last one cast counts, for as long as the target lives.
    static void castFor(void const* voter, QObject* target, Effect effect, bool yes);

private:
    QPointer<WidgetBallot> m_ballot;
    Effect m_effect;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
