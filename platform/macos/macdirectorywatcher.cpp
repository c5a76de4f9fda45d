#include "platform/macos/macdirectorywatcher.h"

#include <dispatch/dispatch.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

// Belongs to the source, not to the watch: a watch that is destroyed while its callback runs leaves
// this alive until the source's cancel handler has come, last of all, on the main queue.
struct WatchedDirectory {
    int descriptor{};
    std::function<void()> changed;
};

void directoryChanged(void *context)
{
    static_cast<WatchedDirectory *>(context)->changed();
}

void closeDirectory(void *context)
{
    const std::unique_ptr<WatchedDirectory> directory(static_cast<WatchedDirectory *>(context));
    close(directory->descriptor);
}

class VnodeWatch final : public DirectoryWatch {
public:
    explicit VnodeWatch(dispatch_source_t source)
        : m_source(source)
    {
    }
    ~VnodeWatch() override
    {
        dispatch_source_cancel(m_source); // from the main queue: no event comes after this
        dispatch_release(m_source);
    }
    Q_DISABLE_COPY_MOVE(VnodeWatch)

private:
    dispatch_source_t m_source;
};

} // namespace

std::unique_ptr<DirectoryWatch> MacDirectoryWatcher::watch(const FileURL &directory,
                                                           std::function<void()> changed)
{
    // For events only: such a descriptor does not keep a volume from being ejected.
    const int descriptor = open(directory.nativePath().constData(), O_EVTONLY | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    dispatch_source_t source
        = dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<uintptr_t>(descriptor),
                                 DISPATCH_VNODE_WRITE | DISPATCH_VNODE_EXTEND
                                     | DISPATCH_VNODE_RENAME | DISPATCH_VNODE_DELETE,
                                 dispatch_get_main_queue());
    if (!source) {
        close(descriptor);
        return nullptr;
    }
    dispatch_set_context(
        source,
        std::make_unique<WatchedDirectory>(WatchedDirectory{descriptor, std::move(changed)})
            .release());
    dispatch_source_set_event_handler_f(source, directoryChanged);
    dispatch_source_set_cancel_handler_f(source, closeDirectory);
    dispatch_resume(source); // sources are made suspended
    return std::make_unique<VnodeWatch>(source);
}
