#pragma once
#pragma GCC system_header

#include_next <fcntl.h>

#define O_EVTONLY 0x8000
