#pragma once

#include "app/window/NumberChooser.h"
#include "kernel/session/Session.h"

#include <QDialog>

#include <map>

class QFormLayout;

namespace veldraw::app {

/// Asks which variables stand on the axes of the active frame's field plot, or make up its vector. In a plane there are two of
/// them, in space three. What is chosen is assigned in one undo step.
class AssignmentDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Kind
    {
        Axes,
        Vector
    };

    AssignmentDialog(kernel::Session& session, Kind kind, QWidget* parent = nullptr);

    /// Whether the active frame has something to assign.
    static bool isPossible(kernel::Session const& session);

    /// Assigns what has been chosen to the frame that was active at first. Must be called with the application's lock held.
    /// @return false when the session refused something
    bool assign();

private:
    void addChooser(QFormLayout& form, char assignment, kernel::Frame const& frame);

    kernel::Session& m_session;
    Kind m_kind;
    kernel::UniqueId m_frame;
    std::map<char, NumberChooser*> m_choosers;
};

} // namespace veldraw::app
