#pragma once

#include "ui/droptarget.h"

struct FolderRowDropDelegate;

/// An area that takes files from other programs.
class FileDropTarget : public DropTarget {
    Q_OBJECT
    QML_ELEMENT

public:
    using DropTarget::DropTarget;

protected:
    [[nodiscard]] bool validateDrop(const DropInfo &info) override;
    void dropEntered(const DropInfo &info) override;
    void dropExited() override;
    void performDrop(const DropInfo &info) override;

private:
    [[nodiscard]] FolderRowDropDelegate handler();
};
