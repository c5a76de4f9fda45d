#pragma once
#pragma GCC system_header

#include_next <sys/stat.h>

// The times of a file have other names on macOS.
#define st_mtimespec st_mtim
#define st_ctimespec st_ctim
