#pragma once

#include <cstdint>

#include <sys/types.h>

/// Only the fields that the backend reads.
struct proc_bsdinfo {
    std::uint64_t pbi_start_tvsec;
    std::uint64_t pbi_start_tvusec;
};

constexpr int PROC_PIDTBSDINFO = 3;

extern "C" int proc_pidinfo(int pid, int flavor, std::uint64_t arg, void *buffer, int buffersize);
