#pragma once

#include "app/window/CentralView.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace veldraw::app {

/// The menu of the ways to look at the plot of the active frame: from sides, as before, as another plot is looked at, or as it was
/// looked at when that was remembered.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    /// @param view what the page does, copied
    explicit ViewMenu(CentralView const& view, QWidget* parent = nullptr);

    /// Which commands make sense. @param isField the active frame has a field plot @param isInSpace with a third dimension
    void enable(bool isField, bool isInSpace);

Q_SIGNALS:
    /// One sentence for the status bar.
    void told(QString const& text);

private:
    QAction& add(char const* name, QString const& text, QKeySequence const& key, std::function<void()> const& work);
    void addSides();
    void addViews();
    void remember();
    void tellUnless(bool isDone, QString const& text);

    CentralView m_view;
    std::vector<QAction*> m_sides;
    std::vector<QAction*> m_views; // the other commands
};

} // namespace veldraw::app
