#include "bench/model/allocationpeak.h"

#include <algorithm>
#include <atomic>

#include <malloc.h>

// The C library's own functions under their second names.
extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void __libc_free(void *);
}

namespace {

std::atomic<std::size_t> allocated;
std::atomic<std::size_t> peak;
std::size_t startSize;

void *counted(void *block)
{
    if (block != nullptr) {
        allocated += malloc_usable_size(block);
        peak = std::max(peak.load(), allocated.load());
    }
    return block;
}

void uncounted(void *block)
{
    if (block != nullptr)
        allocated -= malloc_usable_size(block);
}

} // namespace

extern "C" {

void *malloc(std::size_t size)
{
    return counted(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size)
{
    return counted(__libc_calloc(count, size));
}

// Where a block moves, both are there for a moment: that is left out, as the kernel remaps big
// ones.
void *realloc(void *block, std::size_t size)
{
    uncounted(block);
    return counted(__libc_realloc(block, size));
}

void free(void *block)
{
    uncounted(block);
    __libc_free(block);
}

} // extern "C"

void AllocationPeak::start()
{
    startSize = allocated;
    peak = startSize;
}

std::size_t AllocationPeak::growth()
{
    return peak - startSize;
}
