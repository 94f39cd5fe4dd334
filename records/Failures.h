#pragma once

#include "automation/Error.h"

namespace ormisk::records {

// Failures that the published contract numbers; scripts know them by their low word.
enum class Failure : long {
    InvalidArgument = 3001,
    NoCurrentRecord = 3021,
    IllegalOperation = 3219,
    FeatureNotAvailable = 3251,
    ItemNotFound = 3265,
    DataConversion = 3421,
    ObjectClosed = 3704,
    ObjectOpen = 3705,
    InvalidConnection = 3709,
    OperationCancelled = 3712,
};

// The source of the errors of this server.
extern const wchar_t kTitle[];

[[noreturn]] void Raise(Failure failure);

} // namespace ormisk::records
