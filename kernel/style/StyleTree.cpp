#include "kernel/style/StyleTree.h"

#include "kernel/frames/Pages.h"
#include "kernel/frames/PlotOption.h"
#include "kernel/operations/Operation.h"
#include "kernel/style/ContourColoursItem.h"
#include "kernel/style/CutStyleItem.h"
#include "kernel/style/LineMapStyleItem.h"
#include "kernel/style/PlotOptionItem.h"
#include "kernel/style/SessionStyleItem.h"
#include "kernel/style/SolutionTimeItem.h"
#include "kernel/style/ValueBlankingItem.h"

#include <algorithm>
#include <limits>
#include <set>

namespace veldraw::kernel {

StyleTree::StyleTree(Pages const& pages, EventHub& events, OperationPerformer& performer)
    : m_pages(pages)
    , m_events(events)
    , m_performer(performer)
{
    addInterfaceItems();
    addLineMapItems();
    addFrameItems();
    collectNames();
}

StyleTree::~StyleTree() = default;

void StyleTree::add(std::unique_ptr<StyleItem> item)
{
    StylePath path = item->path();
    m_items.emplace(std::move(path), std::move(item));
}

void StyleTree::addInterfaceItems()
{
    auto const addItem = [this](StylePath path, StyleRange range, StyleNumber initial) {
        add(std::make_unique<SessionStyleItem>(m_events, std::move(path), range, initial));
    };
    auto const whole = &StyleNumber::ofWhole;
    auto const real = &StyleNumber::ofReal;
    constexpr int maxInt = std::numeric_limits<int>::max();
    // The smallest weight is the smallest normal number of single precision: a dialog's own limit is the same.
    constexpr double minWeight = std::numeric_limits<float>::min();
    constexpr double noLimit = std::numeric_limits<double>::infinity();

    addItem({"Interface", "Data", "InvDistExponent"}, StyleRange::above(0.0, 10.0), real(2.0));
    addItem({"Interface", "Data", "InvDistMinRadius"}, StyleRange::from(0.0, noLimit), real(0.0));
    addItem({"Interface", "Data", "InterpNPoints"}, StyleRange::whole(1, maxInt), whole(8));
    addItem({"Interface", "Data", "InterpPTSelection"}, StyleRange::whole(PtSelection_All, PtSelection_Octant),
            whole(PtSelection_Octant));
    addItem({"Interface", "Data", "SmoothBndryCond"},
            StyleRange::whole(BoundaryCondition_Fixed, BoundaryCondition_SecondOrder), whole(BoundaryCondition_Fixed));
    addItem({"Interface", "Data", "NumSmoothPasses"}, StyleRange::whole(1, maxInt), whole(1));
    addItem({"Interface", "Data", "SmoothWeight"}, StyleRange::from(minWeight, 0.95), real(0.5));
    addItem({"FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable"}, StyleRange::onOff(), whole(0));
}

void StyleTree::addLineMapItems()
{
    LineMapStyleItem::Access const access{m_pages, m_performer};
    add(std::make_unique<LineMapVariableItem>(access, StylePath{"LineMap", "Assign", "XAxisVar"}, &LineMap::xVariable));
    add(std::make_unique<LineMapVariableItem>(access, StylePath{"LineMap", "Assign", "YAxisVar"}, &LineMap::yVariable));
    add(std::make_unique<LineMapDependencyItem>(access, StylePath{"LineMap", "Assign", "FunctionDependency"}));
}

void StyleTree::addFrameItems()
{
    for (PlotOption const& option : plotOptions()) {
        add(std::make_unique<PlotOptionItem>(m_pages, m_performer, option));
    }
    add(std::make_unique<SolutionTimeItem>(m_pages, m_performer));
    for (std::unique_ptr<StyleItem>& item : CutStyleItem::all(m_pages, m_performer)) {
        add(std::move(item));
    }
    for (std::unique_ptr<StyleItem>& item : ContourColoursItem::all(m_pages, m_performer)) {
        add(std::move(item));
    }
    for (std::unique_ptr<StyleItem>& item : ValueBlankingItem::all(m_pages, m_performer)) {
        add(std::move(item));
    }
}

void StyleTree::collectNames()
{
    std::set<std::string> names;
    for (auto const& [path, item] : m_items) {
        names.insert(path.begin(), path.end());
    }
    m_names.assign(names.begin(), names.end());
}

StyleItem* StyleTree::find(StylePath const& path) const
{
    auto const found = m_items.find(path);
    return found == m_items.end() ? nullptr : found->second.get();
}

bool StyleTree::hasPath(StylePath const& path) const
{
    // Paths are in order, so the first one that is not smaller is the path itself or the first one below it. A shorter one
    // differs before it ends: the comparison never runs past it.
    auto const found = m_items.lower_bound(path);
    return !path.empty() && found != m_items.end() && std::equal(path.begin(), path.end(), found->first.begin());
}

std::optional<StyleNumber> StyleTree::get(StyleAddress const& address) const
{
    StyleItem const* const item = find(address.path);
    return item == nullptr ? std::nullopt : item->read(address);
}

SetValueReturnCode_e StyleTree::set(StyleAddress const& address, StyleNumber const& number)
{
    m_lastError.clear();
    StyleItem* const item = find(address.path);
    if (item == nullptr) {
        return refuse("There is no style value at " + textOf(address.path) + ".");
    }
    std::string reason = item->refusal(address, number);
    if (!reason.empty()) {
        return refuse(std::move(reason));
    }
    if (isOperationRunning()) {
        StyleAddress later = address;
        std::shared_ptr<Frame> const active = m_pages.activeFrame();
        later.frame = address.frame == 0 && active ? active->id : address.frame; // which is active may change till then
        m_pending.emplace_back(std::move(later), number);
        return SetValueReturnCode_Pending;
    }
    SetValueReturnCode_e const code = item->write(address, number);
    return code == SetValueReturnCode_Refused ? refuse(m_performer.lastError()) : code;
}

SetValueReturnCode_e StyleTree::refuse(std::string reason)
{
    m_lastError = std::move(reason);
    return SetValueReturnCode_Refused;
}

int StyleTree::nameId(std::string const& name) const
{
    auto const found = std::lower_bound(m_names.begin(), m_names.end(), name);
    return found != m_names.end() && *found == name ? static_cast<int>(found - m_names.begin()) + 1 : 0;
}

std::string StyleTree::nameOfId(long long id) const
{
    bool const exists = id >= 1 && id <= static_cast<long long>(m_names.size());
    return exists ? m_names[static_cast<std::size_t>(id - 1)] : std::string();
}

void StyleTree::endOperation() noexcept
{
    if (--m_operations > 0) {
        return;
    }
    auto const pending = std::exchange(m_pending, {});
    for (auto const& [address, number] : pending) {
        try {
            set(address, number);
        } catch (...) {
            // Without memory the old value stays, as for a write that does not fit any more.
        }
    }
}

StyleTree::Hold::Hold(StyleTree& tree)
    : m_tree(tree)
{
    ++m_tree.m_operations;
}

StyleTree::Hold::~Hold()
{
    m_tree.endOperation();
}

} // namespace veldraw::kernel
