#include "dialogs/models/IndexWindow.h"

#include <algorithm>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

unsigned long long wide(int count)
{
    return static_cast<unsigned long long>(count);
}

} // namespace

IndexWindow::IndexWindow(int mostAtOnce)
    : m_mostAtOnce(mostAtOnce)
{
}

void IndexWindow::setTotal(unsigned long long total)
{
    m_total = total;
    m_size = static_cast<int>(std::min(total, wide(m_mostAtOnce)));
    m_first = 0;
}

unsigned long long IndexWindow::lastFirst() const
{
    return m_total - std::min(m_total, wide(m_mostAtOnce));
}

unsigned long long IndexWindow::thing(int inWindow) const
{
    return m_first + wide(inWindow);
}

int IndexWindow::inWindow(unsigned long long thing) const
{
    return thing >= m_first && thing - m_first < wide(m_size) ? static_cast<int>(thing - m_first) : -1;
}

void IndexWindow::dropFront(int count)
{
    m_first += wide(count);
    m_size -= count;
}

void IndexWindow::dropBack(int count)
{
    m_size -= count;
}

void IndexWindow::growFront(int count)
{
    m_first -= wide(count);
    m_size += count;
}

void IndexWindow::growBack(int count)
{
    m_size += count;
}

void IndexWindow::restartAt(unsigned long long first)
{
    m_first = first;
    m_size = 0;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
