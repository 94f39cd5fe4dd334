#include "editors/DateRules.h"

namespace ormisk {

std::wstring FaultOfDate(std::optional<double> date, const DateLimits& limits, std::wstring (*textOf)(double date)) {
    if (date && limits.Min && *date < *limits.Min)
        return L"Entered date is less than " + textOf(*limits.Min);
    if (date && limits.Max && *date >= *limits.Max)
        return L"Entered date is greater than " + textOf(*limits.Max);
    return {};
}

} // namespace ormisk
