#include "platform/WndHooks.h"

#include "automation/ComPtr.h"
#include "automation/Error.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ormisk {

namespace {

constexpr int kHookTypes[] = {WH_KEYBOARD, WH_GETMESSAGE, WH_CALLWNDPROC, WH_CBT, WH_MOUSE, WH_CALLWNDPROCRET};

// The hook of one type. A listener that leaves during a walk leaves an empty place, so that the walk keeps its position
// without a copy of the list.
struct HookRecord {
    int Type = 0;
    HHOOK Hook = nullptr;
    int Walks = 0;
    std::vector<_IHookListener*> Listeners;

    bool IsUnused() const {
        return std::all_of(Listeners.begin(), Listeners.end(), [](auto* listener) { return !listener; });
    }
};

struct HookTable {
    HookRecord Records[std::size(kHookTypes)];
};

// There while the thread has listeners. A plain pointer: nothing is left to run when the thread ends.
thread_local HookTable* m_HookTable = nullptr;

HookRecord* RecordOf(int type) {
    const auto* const found = std::find(std::begin(kHookTypes), std::end(kHookTypes), type);
    if (!m_HookTable || found == std::end(kHookTypes))
        return nullptr;
    return &m_HookTable->Records[found - kHookTypes];
}

void ForgetUnused(HookRecord& record) {
    if (record.Walks == 0)
        std::erase(record.Listeners, nullptr);
    for (const HookRecord& each : m_HookTable->Records)
        if (each.Walks != 0 || !each.Listeners.empty())
            return;
    delete std::exchange(m_HookTable, nullptr);
}

// Tells the listeners; true when one of them keeps the event from the next hook.
bool Notify(HookRecord& record, int nCode, WPARAM wParam, LPARAM lParam) {
    bool bNoCallNextHook = false;
    ++record.Walks;
    for (std::size_t i = 0; i < record.Listeners.size() && !bNoCallNextHook; ++i) {
        const ComPtr<_IHookListener> listener(record.Listeners[i]);
        if (listener)
            IgnoringFailures([&] { listener->NotifyHookedEvent(record.Type, nCode, wParam, lParam, bNoCallNextHook); });
    }
    --record.Walks;
    ForgetUnused(record);
    return bNoCallNextHook;
}

LRESULT HookProc(int nHookType, int nCode, WPARAM wParam, LPARAM lParam) {
    HookRecord* const record = RecordOf(nHookType);
    if (record && Notify(*record, nCode, wParam, lParam) && nCode >= 0)
        return 1;
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

template <int Type> LRESULT CALLBACK HookProcOf(int nCode, WPARAM wParam, LPARAM lParam) {
    return HookProc(Type, nCode, wParam, lParam);
}

HOOKPROC ProcedureOf(int type) {
    switch (type) {
    case WH_KEYBOARD:
        return HookProcOf<WH_KEYBOARD>;
    case WH_GETMESSAGE:
        return HookProcOf<WH_GETMESSAGE>;
    case WH_CALLWNDPROC:
        return HookProcOf<WH_CALLWNDPROC>;
    case WH_CBT:
        return HookProcOf<WH_CBT>;
    case WH_MOUSE:
        return HookProcOf<WH_MOUSE>;
    default:
        return HookProcOf<WH_CALLWNDPROCRET>;
    }
}

} // namespace

void AddWindowsHook(int nHookType, _IHookListener* aListener) {
    if (!aListener || std::find(std::begin(kHookTypes), std::end(kHookTypes), nHookType) == std::end(kHookTypes))
        return;
    if (!m_HookTable)
        m_HookTable = new HookTable;
    HookRecord& record = *RecordOf(nHookType);
    auto& listeners = record.Listeners;
    if (std::find(listeners.begin(), listeners.end(), aListener) != listeners.end())
        return;
    const bool first = record.IsUnused();
    listeners.push_back(aListener);
    if (!first)
        return;
    record.Type = nHookType;
    // The wide version: messages keep their characters.
    record.Hook = SetWindowsHookExW(nHookType, ProcedureOf(nHookType), nullptr, GetCurrentThreadId());
}

void RemoveWindowsHook(int nHookType, _IHookListener* aListener) noexcept {
    HookRecord* const record = RecordOf(nHookType);
    if (!record || !aListener)
        return;
    const auto found = std::find(record->Listeners.begin(), record->Listeners.end(), aListener);
    if (found == record->Listeners.end())
        return;
    *found = nullptr;
    if (record->IsUnused())
        UnhookWindowsHookEx(std::exchange(record->Hook, nullptr));
    ForgetUnused(*record);
}

} // namespace ormisk
