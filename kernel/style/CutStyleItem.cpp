#include "kernel/style/CutStyleItem.h"

#include "kernel/data/DataSet.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/CutOperation.h"

#include <limits>

namespace veldraw::kernel {

namespace {

using Access = CutStyleItem::Access;

Cut const* cutAt(Frame const& frame, StyleAddress const& address)
{
    bool const exists = address.offset1 >= 1 && address.offset1 <= static_cast<long long>(frame.cuts.size());
    if (!exists || address.offset2 != StyleAddress::noOffset) {
        return nullptr;
    }
    return &frame.cuts[static_cast<std::size_t>(address.offset1 - 1)];
}

/// Any finite number, found and put where @p place of a cut says.
template <typename Place>
Access anyNumber(Place const& place)
{
    constexpr double most = std::numeric_limits<double>::max();
    return {[](DataSet const*) { return StyleRange::from(-most, most); },
            [place](Cut const& cut, DataSet const*) {
                Cut copy = cut;
                return place(copy);
            },
            [place](Cut& cut, DataSet const*, double number) { place(cut) = number; }};
}

Access shownOrNot()
{
    return {[](DataSet const*) { return StyleRange::onOff(); },
            [](Cut const& cut, DataSet const*) { return cut.isShown ? 1.0 : 0.0; },
            [](Cut& cut, DataSet const*, double number) { cut.isShown = number > 0.0; }};
}

Access ofVariable()
{
    return {[](DataSet const* dataSet) {
                bool const hasAny = dataSet != nullptr && dataSet->variableCount() > 0;
                return hasAny ? std::optional<StyleRange>(StyleRange::whole(1, dataSet->variableCount()))
                              : std::nullopt;
            },
            [](Cut const& cut, DataSet const* dataSet) {
                return dataSet == nullptr ? 0.0 : static_cast<double>(dataSet->variableNumber(cut.variable));
            },
            [](Cut& cut, DataSet const* dataSet, double number) {
                cut.variable = dataSet->variable(static_cast<int>(number))->id;
            }};
}

} // namespace

CutStyleItem::CutStyleItem(Pages const& pages, OperationPerformer& performer, StylePath path, Access access)
    : StyleItem(std::move(path))
    , m_pages(pages)
    , m_performer(performer)
    , m_access(std::move(access))
{
}

std::vector<std::unique_ptr<StyleItem>> CutStyleItem::all(Pages const& pages, OperationPerformer& performer)
{
    std::vector<std::unique_ptr<StyleItem>> items;
    auto const add = [&](StylePath path, Access access) {
        items.push_back(std::make_unique<CutStyleItem>(pages, performer, std::move(path), std::move(access)));
    };
    add({"Cut", "Position"}, anyNumber([](Cut& cut) -> double& { return cut.position; }));
    add({"Cut", "Show"}, shownOrNot());
    add({"Cut", "Var"}, ofVariable());
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::string const letter(1, "XYZ"[axis]);
        add({"Cut", "Normal", letter}, anyNumber([axis](Cut& cut) -> double& { return cut.normal[axis]; }));
        add({"Cut", "Origin", letter}, anyNumber([axis](Cut& cut) -> double& { return cut.origin[axis]; }));
    }
    return items;
}

std::optional<StyleNumber> CutStyleItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    Cut const* const cut = frame ? cutAt(*frame, address) : nullptr;
    if (cut == nullptr) {
        return std::nullopt;
    }
    return StyleNumber::ofReal(m_access.numberOf(*cut, frame->dataSet.get()));
}

std::string CutStyleItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    if (!frame) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (cutAt(*frame, address) == nullptr) {
        return textOf(path()) + " takes the number of a slice from 1 to " + std::to_string(frame->cuts.size()) +
               " as its one offset; " + std::to_string(address.offset1) + " is none.";
    }
    std::optional<StyleRange> const allowed = m_access.range(frame->dataSet.get());
    return allowed ? refusalBy(*allowed, number) : "The frame has no variables for " + textOf(path()) + ".";
}

SetValueReturnCode_e CutStyleItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    DataSet const* const dataSet = frame->dataSet.get();
    Cut const& cut = *cutAt(*frame, address);
    double const before = m_access.numberOf(cut, dataSet);
    if (!(before < number.real) && !(before > number.real)) {
        return SetValueReturnCode_Duplicate;
    }
    auto const alter = [&](Cut& altered) { m_access.assign(altered, dataSet, number.real); };
    return m_performer.perform(ChangeCut(frame->id, cut.id, alter, path())) ? SetValueReturnCode_Ok
                                                                            : SetValueReturnCode_Refused;
}

} // namespace veldraw::kernel
