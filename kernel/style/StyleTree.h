#pragma once

#include "kernel/style/StyleItem.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::kernel {

class EventHub;
class OperationPerformer;
class Pages;

/// The session's settings under typed paths with limits and start values.
///
///     StyleAddress const mesh{{"FieldLayers", "ShowMesh"}, frame->id};
///     tree.set(mesh, StyleNumber::ofWhole(1));
///
/// A write is first checked against the type and the limits of its path. If it is refused, the value stays as it was, and
/// lastError() names the value, the limits and the path. A write that changes the value sends event 7 with the whole path.
/// While an operation runs, its settings must not change: writes that pass the check return "pending" and are carried out, in
/// order, when the operation has ended.
///
/// Settings of frames and line maps belong to the document and are in the undo history; those of the interface do not and
/// are not.
class StyleTree
{
public:
    /// @param performer carries out what is undoable; not used before the first write
    StyleTree(Pages const& pages, EventHub& events, OperationPerformer& performer);
    ~StyleTree();

    /// Whether there is a value at this path or below it.
    bool hasPath(StylePath const& path) const;

    /// @return nothing for a path without a value, or when the address has no such frame or line map
    std::optional<StyleNumber> get(StyleAddress const& address) const;

    SetValueReturnCode_e set(StyleAddress const& address, StyleNumber const& number);

    /// Why the last write was refused; empty when it was not.
    std::string const& lastError() const { return m_lastError; }

    /// Forgets the reason of an earlier refusal.
    void clearLastError() { m_lastError.clear(); }

    /// Identifier, from 1 on, of a name that is part of some path; 0 for any other text.
    int nameId(std::string const& name) const;

    /// The name with this identifier; empty for a number that is no identifier.
    std::string nameOfId(long long id) const;

    /// Keeps all values unchanged for a scope. Scopes nest; the end of the outermost carries out the writes that were made
    /// meanwhile. A write that is not allowed any more by then is dropped.
    class Hold
    {
    public:
        explicit Hold(StyleTree& tree);
        ~Hold();
        Hold(Hold const&) = delete;
        Hold& operator=(Hold const&) = delete;

    private:
        StyleTree& m_tree;
    };

    bool isOperationRunning() const { return m_operations > 0; }

    StyleTree(StyleTree const&) = delete;
    StyleTree& operator=(StyleTree const&) = delete;

private:
    void add(std::unique_ptr<StyleItem> item);
    void addInterfaceItems();
    void addLineMapItems();
    void addFrameItems();
    void collectNames();
    StyleItem* find(StylePath const& path) const;
    SetValueReturnCode_e refuse(std::string reason);
    void endOperation() noexcept;

    Pages const& m_pages;
    EventHub& m_events;
    OperationPerformer& m_performer;
    std::map<StylePath, std::unique_ptr<StyleItem>> m_items;
    std::vector<std::string> m_names; // sorted; identifiers are positions
    std::vector<std::pair<StyleAddress, StyleNumber>> m_pending;
    int m_operations = 0;
    std::string m_lastError;
};

} // namespace veldraw::kernel
