#include "app/export/ExportProgress.h"

#include "app/export/ExportError.h"

#include <algorithm>

namespace veldraw::app {

ExportProgress::ExportProgress(Listener listener, double total)
    : m_listener(std::move(listener))
    , m_total(std::max(total, 1.0))
{
}

void ExportProgress::begin(double work)
{
    m_before += m_part;
    m_part = work;
    check(0.0);
}

bool ExportProgress::show(double fraction)
{
    if (m_listener && !m_isCancelled)
        m_isCancelled = !m_listener(std::min(1.0, (m_before + fraction * m_part) / m_total));
    return !m_isCancelled;
}

void ExportProgress::check(double fraction)
{
    if (!show(fraction))
        throw ExportCancelled("the export was cancelled");
}

} // namespace veldraw::app
