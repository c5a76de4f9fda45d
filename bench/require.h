#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the benchmark when what it is about to measure is not there.
inline void require(bool claim, const char *otherwise = "the answer is wrong")
{
    if (claim)
        return;
    std::fprintf(stderr, "It cannot be measured: %s\n", otherwise);
    std::exit(EXIT_FAILURE);
}
