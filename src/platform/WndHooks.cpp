#include "platform/WndHooks.h"

#include "automation/ComPtr.h"
#include "automation/Error.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace ormisk {

namespace {

template <int Type> LRESULT CALLBACK HookProcOf(int nCode, WPARAM wParam, LPARAM lParam);

struct HookType {
    int Type;
    HOOKPROC Procedure;
};
template <int... Types> constexpr HookType kTypesOf[] = {{Types, HookProcOf<Types>}...};
constexpr const auto& kHookTypes =
    kTypesOf<WH_KEYBOARD, WH_GETMESSAGE, WH_CALLWNDPROC, WH_CBT, WH_MOUSE, WH_CALLWNDPROCRET>;

const HookType* FindType(int type) { return std::ranges::find(kHookTypes, type, &HookType::Type); }

// The hook of one type. A listener that leaves during a walk leaves an empty place, so that the walk keeps its position
// without a copy of the list.
struct HookRecord {
    HHOOK Hook = nullptr;
    int Walks = 0;
    std::vector<_IHookListener*> Listeners;

    bool IsUnused() const {
        return std::ranges::all_of(Listeners, [](auto* listener) { return !listener; });
    }
};

using HookTable = std::array<HookRecord, std::size(kHookTypes)>;

// There while the thread has listeners. A plain pointer: nothing is left to run when the thread ends.
thread_local HookTable* m_HookTable = nullptr;

HookRecord* RecordOf(int type) {
    const HookType* const found = FindType(type);
    return m_HookTable && found != std::end(kHookTypes) ? &(*m_HookTable)[found - kHookTypes] : nullptr;
}

void ForgetUnused(HookRecord& record) {
    if (record.Walks == 0)
        std::erase(record.Listeners, nullptr);
    for (const HookRecord& each : *m_HookTable)
        if (each.Walks != 0 || !each.Listeners.empty())
            return;
    delete std::exchange(m_HookTable, nullptr);
}

// Tells the listeners; true when one of them keeps the event from the next hook.
bool Notify(HookRecord& record, int nHookType, int nCode, WPARAM wParam, LPARAM lParam) {
    bool bNoCallNextHook = false;
    ++record.Walks;
    for (std::size_t i = 0; i < record.Listeners.size() && !bNoCallNextHook; ++i) {
        const ComPtr<_IHookListener> listener(record.Listeners[i]);
        if (listener)
            IgnoringFailures([&] { listener->NotifyHookedEvent(nHookType, nCode, wParam, lParam, bNoCallNextHook); });
    }
    --record.Walks;
    ForgetUnused(record);
    return bNoCallNextHook;
}

template <int Type> LRESULT CALLBACK HookProcOf(int nCode, WPARAM wParam, LPARAM lParam) {
    HookRecord* const record = RecordOf(Type);
    if (record && Notify(*record, Type, nCode, wParam, lParam) && nCode >= 0)
        return 1;
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

} // namespace

void AddWindowsHook(int nHookType, _IHookListener* aListener) {
    const HookType* const known = FindType(nHookType);
    if (!aListener || known == std::end(kHookTypes))
        return;
    if (!m_HookTable)
        m_HookTable = new HookTable;
    HookRecord& record = *RecordOf(nHookType);
    if (std::ranges::find(record.Listeners, aListener) != record.Listeners.end())
        return;
    const bool first = record.IsUnused();
    record.Listeners.push_back(aListener);
    if (first) // the wide version: messages keep their characters
        record.Hook = SetWindowsHookExW(nHookType, known->Procedure, nullptr, GetCurrentThreadId());
}

void RemoveWindowsHook(int nHookType, _IHookListener* aListener) noexcept {
    HookRecord* const record = RecordOf(nHookType);
    if (!record || !aListener)
        return;
    const auto found = std::ranges::find(record->Listeners, aListener);
    if (found == record->Listeners.end())
        return;
    *found = nullptr;
    if (record->IsUnused())
        UnhookWindowsHookEx(std::exchange(record->Hook, nullptr));
    ForgetUnused(*record);
}

} // namespace ormisk
