#include "platform/posix/filecalls.h"

#include <copyfile.h>
#include <unistd.h>

timespec modificationTime(const struct stat &status)
{
    return status.st_mtimespec;
}

timespec changeTime(const struct stat &status)
{
    return status.st_ctimespec;
}

int syncData(int descriptor)
{
    return ::fsync(descriptor);
}

void populatePages(char *, qsizetype) // the system decides for itself
{
}

int copyContents(int from, int to, qint64, CopySupport &)
{
    return ::fcopyfile(from, to, nullptr, COPYFILE_DATA);
}

int copyAttributes(int from, int to)
{
    return ::fcopyfile(from, to, nullptr, COPYFILE_XATTR | COPYFILE_ACL);
}
