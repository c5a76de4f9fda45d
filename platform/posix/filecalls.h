#pragma once

#include <QtGlobal>

#include <sys/stat.h>

// The few file calls that POSIX systems spell differently, one source file per system.

[[nodiscard]] timespec modificationTime(const struct stat &status);
[[nodiscard]] timespec changeTime(const struct stat &status);

/// Waits until the file's bytes are on the disk. 0, or -1 with errno set.
[[nodiscard]] int syncData(int descriptor);

/// Lets fresh memory for the many bytes of a file have its pages at once, where the system can: to
/// be given them one by one takes longer than to copy the bytes there.
void populatePages(char *memory, qsizetype size);

/// What a volume was not yet found to refuse while a tree is copied.
struct CopySupport {
    bool sharesBlocks = true;
    bool copiesRanges = true;
};

/// Copies everything from the start of one file into another, new one, sharing the blocks where the
/// volume can. 0, or -1 with errno set.
[[nodiscard]] int copyContents(int from, int to, qint64 size, CopySupport &support);

/// Copies the extended attributes of a file or directory, those that its new volume can hold.
/// 0, or -1 with errno set.
[[nodiscard]] int copyAttributes(int from, int to);
