#pragma once

#include <QPointer>

class QObject;

namespace veldraw::sdk::ui::dialogs::propertybindings {

class WidgetBallot;

/// One voice in whether a widget, or an action of a menu, can be used or is shown.
///
/// Several rules may sit on the same widget: the dialog's, the widget's own, a binding's. If each set the state by its
/// own answer they would overwrite one another; so each holds a vote, and the widget has the state only if all votes
/// say yes. A vote that ends leaves the decision to the others; when the last one ends the widget stays as it is.
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
