#pragma once

#include "dialogs/bindings/WidgetVote.h"

#include <QObject>

#include <array>
#include <map>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// All votes on one widget or action. A child object of it, so that both are destroyed together.
class WidgetBallot : public QObject
{
    Q_OBJECT

public:
    /// The ballot of a `QWidget` or `QAction`, made on first use; null for anything else.
    static WidgetBallot* of(QObject* target);

    void cast(void const* voter, WidgetVote::Effect effect, bool yes);
    void withdraw(void const* voter, WidgetVote::Effect effect);

private:
    using Votes = std::map<void const*, bool>; // by voter

    explicit WidgetBallot(QObject& target);
    void apply(WidgetVote::Effect effect);

    std::array<Votes, 2> m_votes; // by effect
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
