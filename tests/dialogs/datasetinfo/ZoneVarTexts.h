#pragma once

#include "kernel/session/Session.h"

#include <map>
#include <string>

namespace veldraw::tests {

/// What the page on a zone and a variable has to show, worked out from the kernel's data, value by value.
///
/// Without a selected zone nothing is told of a zone or variable that was not told before: those texts stay, but for the two limits
/// in the selected zone, which are empty, and those in the active zones, which are "--------" when the frame shows nothing. Without
/// a selected variable the same holds of the variable's texts.
class ZoneVarTexts
{
public:
    using Texts = std::map<std::string, std::string>;

    /// @param zone, variable that are selected, one-based; 0 for none
    /// @return a text for each label or field of the page, by its object name
    Texts const& fresh(kernel::Session const& session, int zone, int variable);

    /// A number with six significant digits.
    static std::string numberText(double number);

private:
    struct Limits
    {
        bool isKnown = false;
        bool isEstimated = false;
        double min = 0.0;
        double max = 0.0;
    };

    static Limits limitsInZone(kernel::Zone const& zone, int variable);
    static Limits limitsIn(kernel::DataSet const& dataSet, kernel::NumberSet const& zones, int variable);
    void tellZone(kernel::Zone const& zone);
    void tellVariable(kernel::Zone const& zone, kernel::Variable const& variable, int number);
    void tellActive(kernel::Session const& session, bool isSelected, int variable);

    Texts m_texts;
    Limits m_active;
};

} // namespace veldraw::tests
