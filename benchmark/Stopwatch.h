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

// The median time of so many runs, in microseconds. What `prepare` does before each run is not measured.
inline double MedianOf(int runs, const std::function<void()>& prepare, const std::function<void()>& operation) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        prepare();
        times.push_back(TimeOf(operation));
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace ormisk::bench
