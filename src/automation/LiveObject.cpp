#include "automation/LiveObject.h"

#include <atomic>

namespace ormisk {

namespace {
std::atomic<long> g_LiveObjects = 0;
}

LiveObject::LiveObject() noexcept { ++g_LiveObjects; }

LiveObject::~LiveObject() { --g_LiveObjects; }

long LiveObjects() noexcept { return g_LiveObjects; }

void LockServerModule(bool lock) noexcept { lock ? ++g_LiveObjects : --g_LiveObjects; }

} // namespace ormisk
