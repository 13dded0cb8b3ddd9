// The clock of the benchmarks, and the middle of what they measured with it.
#pragma once

#include <algorithm>
#include <vector>
#include <windows.h>

namespace halyard::bench {

// In nanoseconds; the platform's counter has a resolution of 100.
inline double Now() noexcept {
    static const double tick = [] {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        return 1e9 / static_cast<double>(frequency.QuadPart);
    }();
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) * tick;
}

inline double Median(std::vector<double> values) noexcept {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace halyard::bench
