#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// The part of a long row of things that is in view: @c size things from @c first on, of @c total. A view counts from
/// the window's start by int, the owner of the things from theirs by 64 bits; both from zero.
class VDSDKDIALOGS_DATA_QT_API IndexWindow
{
public:
    /// @param mostAtOnce 1 or more
    explicit IndexWindow(int mostAtOnce);

    /// Sets the number of things and moves the window to the first one.
    void setTotal(unsigned long long total);
    unsigned long long total() const { return m_total; }

    unsigned long long first() const { return m_first; }
    int size() const { return m_size; }
    /// The last thing with which the window can begin.
    unsigned long long lastFirst() const;
    bool showsAll() const { return lastFirst() == 0; }

    unsigned long long thing(int inWindow) const;
    /// Place of a thing in the window, -1 if it is outside.
    int inWindow(unsigned long long thing) const;

    /// The four steps of a move, between which the window is smaller.
    void dropFront(int count);
    void dropBack(int count);
    void growFront(int count);
    void growBack(int count);
    /// Moves an empty window.
    void restartAt(unsigned long long first);

private:
    int const m_mostAtOnce;
    unsigned long long m_total = 0;
    unsigned long long m_first = 0;
    int m_size = 0;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
