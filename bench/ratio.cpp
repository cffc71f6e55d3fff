#include "bench/ratio.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/start.h"

namespace bench {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr int kSamples = 7 * 50;
// Long enough for the clock's own cost to vanish, short enough for a change of speed to meet both.
constexpr Seconds kSampleTime{500e-6};

std::map<std::string, double>& Results() {
    static std::map<std::string, double> results;
    return results;
}

Seconds TimeOf(const std::function<void()>& function, int calls) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) function();
    return std::chrono::steady_clock::now() - start;
}

/// How many calls fill a sample. The calls made to find out warm the caches as well.
int CallsPerSample(const std::function<void()>& function) {
    constexpr int kMost = 1 << 24;
    int calls = 1;
    while (calls < kMost && TimeOf(function, calls) < kSampleTime) calls *= 2;
    return calls;
}

/// One side of a pair with its samples, in seconds a call.
class Side {
public:
    explicit Side(const std::function<void()>& function)
        : function_(function), calls_(CallsPerSample(function)) {
        samples_.reserve(kSamples);
    }

    double Sample() {
        samples_.push_back(TimeOf(function_, calls_).count() / calls_);
        return samples_.back();
    }

    double FastTenth() {
        const auto tenth = samples_.begin() + static_cast<std::ptrdiff_t>(samples_.size() / 10);
        std::nth_element(samples_.begin(), tenth, samples_.end());
        return *tenth;
    }

private:
    const std::function<void()>& function_;
    int calls_;
    std::vector<double> samples_;
};

void RunRatio(benchmark::State& state, const std::string& key, Pair (*make)()) {
    const Pair pair = make();
    Side kernel(pair.kernel);
    Side baseline(pair.baseline);
    while (state.KeepRunning()) {
        baseline.Sample();
        state.SetIterationTime(kernel.Sample());
    }
    const double kernel_time = kernel.FastTenth();
    const double baseline_time = baseline.FastTenth();
    const double ratio = kernel_time / baseline_time;
    state.counters["kernel_ns"] = kernel_time * 1e9;
    state.counters["baseline_ns"] = baseline_time * 1e9;
    state.counters["ratio"] = ratio;
    Results()[key] = ratio;
}

void RunMeasure(benchmark::State& state, const std::string& key, double (*measure)()) {
    while (state.KeepRunning()) Results()[key] = measure();
    state.counters["result"] = Results()[key];
}

bool WriteResults(const std::string& file) {
    std::FILE* out = std::fopen(file.c_str(), "w");
    if (out == nullptr) return false;
    bool good = true;
    for (const auto& [key, value] : Results()) {
        good = std::isfinite(value) &&
               std::fprintf(out, "\"%s\": %.6g\n", key.c_str(), value) > 0 && good;
    }
    return std::fclose(out) == 0 && good;
}

}  // namespace

bool AddRatio(const char* key, Pair (*make)()) {
    benchmark::RegisterBenchmark(key, RunRatio, std::string(key), make)
        ->Iterations(kSamples)
        ->UseManualTime();
    return true;
}

bool AddMeasure(const char* key, double (*measure)()) {
    benchmark::RegisterBenchmark(key, RunMeasure, std::string(key), measure)->Iterations(1);
    return true;
}

}  // namespace bench

// Google Benchmark's own arguments, and --results=FILE for lines of `"key": value`.
int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    constexpr std::string_view kOption = "--results=";
    std::string file;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (!argument.starts_with(kOption)) {
            std::fprintf(stderr, "%s: unknown argument %s\n", argv[0], argv[i]);
            return 2;
        }
        file = argument.substr(kOption.size());
    }
    platform::Start({.display = platform::Display::kHeadless});
    benchmark::RunSpecifiedBenchmarks();
    if (!file.empty() && !bench::WriteResults(file)) {
        std::fprintf(stderr, "%s: cannot write %s, or a result is no number\n", argv[0],
                     file.c_str());
        return 1;
    }
    return 0;
}
