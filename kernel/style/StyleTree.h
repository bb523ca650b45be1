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
/// A write is checked against the type and the limits of its path first. A refused one leaves the old value and a
/// sentence in lastError() that names the value, the limits and the path. One that changes something sends event 7 with
/// the whole path. While an operation runs, what it has read must not change under it: writes that pass the check are
/// answered with "pending" and carried out, in order, when the operation has ended.
///
/// Interface settings are no part of a document and not in the undo history; the settings of frames and line maps are.
class StyleTree
{
public:
    /// @param performer carries out what is undoable; not used before the first write
    StyleTree(Pages const& pages, EventHub& events, OperationPerformer& performer);
    ~StyleTree();

    /// Whether there is a value at this path or below it.
    bool hasPath(StylePath const& path) const;

    /// @return nothing for a path without a value and for an address that picks nothing
    std::optional<StyleNumber> get(StyleAddress const& address) const;

    SetValueReturnCode_e set(StyleAddress const& address, StyleNumber const& number);

    /// Why the last write was refused; empty when it was not.
    std::string const& lastError() const { return m_lastError; }

    /// Forgets the reason of an earlier refusal.
    void clearLastError() { m_lastError.clear(); }

    /// Identifier of a name that occurs in some path, from 1 on; 0 for any other text.
    int nameId(std::string const& name) const;

    /// The name of an identifier, empty for 0 and numbers that are none.
    std::string nameOfId(long long id) const;

    /// Keeps the values as they are for its scope; scopes nest, and the end of the outermost carries out the writes that
    /// came meanwhile. A write that does not fit any more by then is dropped.
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
