#pragma once

#include <functional>

// Results of benchmark programs. Most are ratios, because on a machine that changes its speed no
// time means anything by itself: a kernel and its baseline run in turn in one process, and their
// times are divided.

namespace bench {

/// What is measured and what it is held against. Either is called again and again, so each call
/// finds what the calls before it left.
struct Pair {
    std::function<void()> kernel;
    std::function<void()> baseline;
};

/// Has the pair that `make` builds measured; `make` runs once, right before the measurement.
bool AddRatio(const char* key, Pair (*make)());

/// Has a function called once whose answer is the result.
bool AddMeasure(const char* key, double (*measure)());

}  // namespace bench

#define BENCH_JOIN_(first, second) first##second
#define BENCH_NAME_(first, second) BENCH_JOIN_(first, second)
#define BENCH_ADD_(add, type, key)                                     \
    static type BENCH_NAME_(Benchmark, __LINE__)();                    \
    [[maybe_unused]] static const bool BENCH_NAME_(kAdded, __LINE__) = \
        bench::add(key, &BENCH_NAME_(Benchmark, __LINE__));            \
    static type BENCH_NAME_(Benchmark, __LINE__)()

/// RATIO("text.bounded_copy_over_memcpy") { ...; return {kernel, baseline}; }
#define RATIO(key) BENCH_ADD_(AddRatio, bench::Pair, key)

/// MEASURE("idle.cpu_ms_in_10_s") { ...; return millis; }
#define MEASURE(key) BENCH_ADD_(AddMeasure, double, key)
