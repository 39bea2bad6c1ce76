// Marks a function that loops over many numbers: it is compiled for every x86-64 processor and once more for
// those with AVX2, and the program takes the right one when it starts; the widest loops have a third form for
// AVX-512. All give the same bits: rooms with such loops are compiled without fusing multiplications with
// additions.
#pragma once

// The sanitizers are not up yet when the choice is made.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define TEMBREL_WIDE_LOOPS __attribute__((target_clones("avx2", "default")))
#define TEMBREL_WIDEST_LOOPS __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define TEMBREL_WIDE_LOOPS
#define TEMBREL_WIDEST_LOOPS
#endif
