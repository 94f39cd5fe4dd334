#pragma once

#include <optional>
#include <string>

// What a date row accepts, apart from any window. Dates are automation dates: days, and the time as their fraction.
namespace ormisk {

struct DateLimits {
    std::optional<double> Min; // inclusive
    std::optional<double> Max; // exclusive
};

// Why a date is refused, with the limit as `textOf` shows it; empty when it is not. No date is none to refuse.
std::wstring FaultOfDate(std::optional<double> date, const DateLimits& limits, std::wstring (*textOf)(double date));

} // namespace ormisk
