#include "platform/macos/macrunningapplications.h"

#include "platform/macos/foundationtypes.h"

#import <AppKit/AppKit.h>

#include <libproc.h>

namespace {

// Microseconds since 1970; 0 for a process that is gone. Not the launch date that AppKit gives:
// that is nil for an application that something other than the workspace started.
quint64 startTimeOf(pid_t processID)
{
    proc_bsdinfo info{};
    constexpr int size = sizeof(info);
    if (proc_pidinfo(processID, PROC_PIDTBSDINFO, 0, &info, size) != size)
        return 0;
    return info.pbi_start_tvsec * 1'000'000 + info.pbi_start_tvusec;
}

// Nil when the application is gone, be its process id in use again or not; messages to nil do
// nothing.
NSRunningApplication *find(const RunningApplication &application)
{
    const auto processID = static_cast<pid_t>(application.processID);
    if (startTimeOf(processID) != application.startTime)
        return nil;
    return [NSRunningApplication runningApplicationWithProcessIdentifier:processID];
}

} // namespace

QList<RunningApplication>
MacRunningApplications::withBundleIdentifier(const QString &bundleIdentifier) const
{
    @autoreleasepool {
        QList<RunningApplication> applications;
        for (NSRunningApplication *application in [NSRunningApplication
                 runningApplicationsWithBundleIdentifier:nsString(bundleIdentifier)]) {
            // The list may lag behind: what AppKit knows changes only between turns of the main run
            // loop. Whether the process lives is known at once.
            const pid_t processID = [application processIdentifier];
            if (const quint64 startTime = startTimeOf(processID); startTime != 0)
                applications.append({.processID = processID, .startTime = startTime});
        }
        return applications;
    }
}

void MacRunningApplications::terminate(const RunningApplication &application)
{
    @autoreleasepool {
        [find(application) terminate];
    }
}

void MacRunningApplications::forceTerminate(const RunningApplication &application)
{
    @autoreleasepool {
        [find(application) forceTerminate];
    }
}
