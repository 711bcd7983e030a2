// Measures two ways of doing the same work in turn, in one run, and compares them.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

#include <benchmark/benchmark.h>

namespace suisui::bench {

/// Seconds that \a work takes.
template <typename Work> double timed(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

class Samples
{
public:
    void add(double seconds) { m_seconds.push_back(seconds); }
    /// \a share 0.5 is the median, 0.99 the 99th percentile.
    [[nodiscard]] double at(double share)
    {
        std::sort(m_seconds.begin(), m_seconds.end());
        return m_seconds.at(static_cast<std::size_t>(share * static_cast<double>(m_seconds.size() - 1)));
    }
    [[nodiscard]] double median() { return at(0.5); }

private:
    std::vector<double> m_seconds;
};

/// Reports medians in milliseconds and their ratio.
inline void report(benchmark::State& state, Samples& program, Samples& baseline)
{
    state.counters["program_ms"] = program.median() * 1e3;
    state.counters["baseline_ms"] = baseline.median() * 1e3;
    state.counters["ratio"] = program.median() / baseline.median();
}

} // namespace suisui::bench
