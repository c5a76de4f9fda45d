#pragma once

#include <cstdint>

using copyfile_flags_t = std::uint32_t;
using copyfile_state_t = struct CopyfileState *;

constexpr copyfile_flags_t COPYFILE_ACL = 1U << 0;
constexpr copyfile_flags_t COPYFILE_STAT = 1U << 1;
constexpr copyfile_flags_t COPYFILE_XATTR = 1U << 2;
constexpr copyfile_flags_t COPYFILE_DATA = 1U << 3;
constexpr copyfile_flags_t COPYFILE_ALL
    = COPYFILE_ACL | COPYFILE_STAT | COPYFILE_XATTR | COPYFILE_DATA;
constexpr copyfile_flags_t COPYFILE_RECURSIVE = 1U << 15;
constexpr copyfile_flags_t COPYFILE_NOFOLLOW = (1U << 18) | (1U << 19);
constexpr copyfile_flags_t COPYFILE_CLONE = 1U << 24;

extern "C" {
int copyfile(const char *from, const char *to, copyfile_state_t state, copyfile_flags_t flags);
int fcopyfile(int from, int to, copyfile_state_t state, copyfile_flags_t flags);
}
