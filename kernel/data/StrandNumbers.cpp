#include "kernel/data/StrandNumbers.h"

namespace veldraw::kernel {

StrandNumbers::StrandNumbers(DataSet const& dataSet)
{
    for (auto const& zone : dataSet.zones()) {
        if (isStrand(zone->strand)) {
            m_used.insert(zone->strand);
        }
    }
}

int StrandNumbers::next()
{
    int number = m_used.empty() ? 1 : *m_used.rbegin() + 1;
    if (!isStrand(number)) {
        for (number = 1; m_used.count(number) != 0;) {
            ++number;
        }
    }
    m_used.insert(number);
    return number;
}

} // namespace veldraw::kernel
