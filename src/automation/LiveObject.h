#pragma once

namespace ormisk {

// One for each object that keeps the module loaded. Counted over all threads.
class LiveObject {
public:
    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;

protected:
    LiveObject() noexcept;
    ~LiveObject();
};

// Live objects and server locks: the module can be unloaded at 0.
long LiveObjects() noexcept;
void LockServerModule(bool lock) noexcept;

} // namespace ormisk
