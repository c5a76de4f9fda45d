#pragma once

#include "model/dockfolder.h"

#include <functional>
#include <optional>

class DropInfo;

/// A value that somebody else owns, as one who may read and set it sees it.
template <typename Value> struct Binding {
    std::function<Value()> get{};
    std::function<void(const Value &)> set{};
};

/// The drop handler of one cell of a folder's items. It takes files from outside, and the folder's
/// own items while they are dragged about.
struct CompanionItemDropDelegate {
    qsizetype targetIndex{}; ///< where the cell stands in the folder
    DockFolderItem targetItem{};
    Binding<std::optional<QUuid>> draggedItemID{}; ///< the item that is being dragged, if one is
    std::function<void(const QUuid &itemID, qsizetype targetIndex)> onMove{};
    std::function<void(const QList<FileURL> &)> onAdd{};

    [[nodiscard]] bool validateDrop(const DropInfo &info) const;
    bool performDrop(const DropInfo &info) const; ///< always true
    /// Moves the dragged item here at once: the order follows the pointer.
    void dropEntered(const DropInfo &info) const;
};
