#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace ormisk::bench {

// Microseconds since some fixed moment.
inline double Now() {
    LARGE_INTEGER ticks, perSecond;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(ticks.QuadPart) * 1e6 / static_cast<double>(perSecond.QuadPart);
}

inline double TimeOf(const std::function<void()>& operation) {
    const double start = Now();
    operation();
    return Now() - start;
}

struct Measured {
    std::function<void()> prepare; // not measured
    std::function<void()> operation;
};

// The median times of operations that take turns, so many runs each, in microseconds: what slows the machine for a
// while slows all of them.
inline std::vector<double> MediansOf(int runs, const std::vector<Measured>& measured) {
    std::vector<std::vector<double>> times(measured.size());
    for (int i = 0; i < runs; ++i) {
        for (std::size_t which = 0; which < measured.size(); ++which) {
            measured[which].prepare();
            times[which].push_back(TimeOf(measured[which].operation));
        }
    }
    std::vector<double> medians;
    for (auto& of : times) {
        std::sort(of.begin(), of.end());
        medians.push_back(of[of.size() / 2]);
    }
    return medians;
}

// The median time of so many runs, in microseconds. What `prepare` does before each run is not measured.
inline double MedianOf(int runs, const std::function<void()>& prepare, const std::function<void()>& operation) {
    return MediansOf(runs, {{prepare, operation}}).front();
}

} // namespace ormisk::bench
