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

    /// There are this many things now; the window begins with the first.
    void setTotal(unsigned long long total);
    unsigned long long total() const { return m_total; }

    unsigned long long first() const { return m_first; }
    int size() const { return m_size; }
    /// Where the window can begin at most.
    unsigned long long lastFirst() const;
    bool showsAll() const { return lastFirst() == 0; }

    unsigned long long thing(int inWindow) const;
    /// Place in the window, -1 for what isn't in it.
    int inWindow(unsigned long long thing) const;

    /// The four steps of a move; the window is smaller in between.
    void dropFront(int count);
    void dropBack(int count);
    void growFront(int count);
    void growBack(int count);
    /// Puts the window of no size somewhere.
    void restartAt(unsigned long long first);

private:
    int const m_mostAtOnce;
    unsigned long long m_total = 0;
    unsigned long long m_first = 0;
    int m_size = 0;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
