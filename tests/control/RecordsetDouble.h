#pragma once

#include "GridContainer.h"

#include <optional>

namespace ormisk::test {

// What a recordset tells of a field, as published.
inline constexpr long kIntegerField = 3, kTextField = 202;
inline constexpr long kUpdatable = 0x4, kNullable = 0x20;
struct FieldShape {
    std::wstring name;
    long type = kTextField;
    long attributes = kUpdatable | kNullable;
    long size = 20;
};
using Records = std::vector<std::vector<_variant_t>>;

enum CursorKind : long { kForwardOnly = 0, kStatic = 3 };
enum LockKind : long { kReadOnlyLock = 1, kPessimistic = 2, kOptimistic = 3, kBatchOptimistic = 4 };
enum MoveReason : long {
    kRequeried = 7,
    kClosed = 9,
    kPositioned = 10,
    kMovedFirst = 12,
    kMovedNext = 13,
    kMovedPrevious = 14,
    kMovedLast = 15
};

// Its numbers of failures.
inline constexpr HRESULT kNoCurrentRecord = static_cast<HRESULT>(0x800A0BCD);
inline constexpr HRESULT kBadArgument = static_cast<HRESULT>(0x800A0BB9);
inline constexpr HRESULT kNoSuchItem = static_cast<HRESULT>(0x800A0CC1);
inline constexpr HRESULT kNotCapable = static_cast<HRESULT>(0x800A0CB3);
inline constexpr HRESULT kObjectClosed = static_cast<HRESULT>(0x800A0E78);
inline constexpr HRESULT kNoFetchBackward = static_cast<HRESULT>(0x80040E24);
inline constexpr HRESULT kFieldError = static_cast<HRESULT>(0x80040E21);
inline constexpr HRESULT kRefused = static_cast<HRESULT>(0x80040E2F); // of the failures that a test asks for

// The source of the events, by the newer or the older identifier.
class RecordsetEvents : public ConnectionPoints {
public:
    bool older = false;       // what it answers to, of recordset and events
    bool raisesEvents = true; // set before it is loaded

    void* FindInterface(REFIID iid);
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
    std::size_t Sinks() const { return SinksOf(Source()).size(); }

protected:
    RecordsetEvents();
    // To each sink that is still connected when its turn comes.
    void Tell(DISPID id, std::initializer_list<_variant_t> before, long status);

private:
    const IID& Source() const;
};

// A member that can be called by name, and how: as a property or as a method.
struct MemberName {
    const wchar_t* name;
    WORD kinds;
};
using MemberNames = std::vector<MemberName>;
struct NamedCall {
    const wchar_t* name;
    bool puts;
    const VARIANT* argument; // null for none
};

// An object whose members go by their names. Failures are raised.
template <class... Others> class NamedObject : public DispatchObject<IDispatch, void, void, Others...> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        for (std::size_t i = 0; i < m_Members.size(); ++i)
            if (_wcsicmp(m_Members[i].name, names[0]) == 0)
                return ids[0] = kFirstId + static_cast<DISPID>(i), S_OK;
        return ids[0] = DISPID_UNKNOWN, DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        const auto index = static_cast<std::size_t>(id - kFirstId);
        if (index >= m_Members.size() || !(m_Members[index].kinds & flags))
            return DISP_E_MEMBERNOTFOUND;
        const ComPtr<IDispatch> alive(this);
        try {
            const bool puts = (flags & DISPATCH_PROPERTYPUT) != 0;
            _variant_t value = Do({m_Members[index].name, puts, parameters->cArgs ? parameters->rgvarg : nullptr});
            if (result && !puts)
                *result = value.Detach();
            return S_OK;
        } catch (...) {
            return Fails(CurrentError(), exception);
        }
    }

protected:
    explicit NamedObject(const MemberNames& members) : m_Members(members) {}
    virtual _variant_t Do(const NamedCall& call) = 0;
    virtual HRESULT Fails(const AutomationError& error, EXCEPINFO* exception) {
        return GiveException(error, exception);
    }

private:
    static constexpr DISPID kFirstId = 1001;
    const MemberNames& m_Members;
};

// A recordset in memory. A test says what it can do and what fails, and reads what was done to it.
class RecordsetDouble final : public NamedObject<RecordsetEvents> {
public:
    RecordsetDouble(std::vector<FieldShape> shapes, Records data);

    std::vector<FieldShape> fields;
    Records records;
    long state = 1;
    long cursorType = kStatic;
    long lockType = kOptimistic;
    bool countKnown = true;
    bool positions = true; // else there is no AbsolutePosition: it is unknown, or raises
    bool positionRaises = false;
    std::optional<long> supported; // instead of what lock and cursor support
    bool describesFailures = true; // else a bare number is all there is
    // Members as they are written down: "MoveNext", "AbsolutePosition=" for a write, "Fields.Item", "Field.Value=".
    std::map<std::wstring, _variant_t> answers;             // of reads, in place of its own
    std::function<void(const std::wstring& member)> onCall; // before the member does anything

    static std::vector<std::wstring> AllMembers();

    // Each call of the member fails from now on, or only the n-th.
    void Fail(const std::wstring& member, int nth = 0, HRESULT number = kRefused,
              const std::wstring& text = L"Refused.");
    void FailNothing() { m_Failures.clear(); }
    bool HasFailed() const { return m_HasFailed; }

    // Moves, writes, updates and cancelled ones since the last call: "Age=5; Update".
    std::wstring Done();
    long Calls(const std::wstring& member) const; // since it was made

    // What the host's own code does.
    void Host(const wchar_t* method);
    void HostPositions(long position);
    void HostPuts(const wchar_t* field, const _variant_t& value);
    void HostCloses();
    void HostRequeries();
    std::wstring Current(const wchar_t* field) const; // of the current record, as edited so far
    long Position() const { return m_At; }
    bool IsEditing() const { return m_Edited.has_value(); }

    // For its fields.
    void Called(const std::wstring& member);
    _variant_t ReadValue(std::size_t field);
    void WriteValue(std::size_t field, const VARIANT& value);
    std::size_t FindField(const VARIANT& indexOrName) const;

protected:
    _variant_t Do(const NamedCall& call) override;
    HRESULT Fails(const AutomationError& error, EXCEPINFO* exception) override;

private:
    struct Failure {
        int nth = 0; // call from now on; 0 for each
        HRESULT number = kRefused;
        std::wstring text;
    };

    _variant_t ReadMember(const std::wstring& name, const VARIANT* argument);
    void Act(const std::wstring& name);
    void Move(MoveReason reason, long target);
    void MoveBy(const std::wstring& name);
    void RequireOpen() const;
    std::vector<_variant_t>& Current();
    void Update();
    long Abilities() const;
    _variant_t AbsolutePosition() const;
    bool AtBegin() const { return records.empty() || m_At < 1; }
    bool AtEnd() const { return records.empty() || m_At > static_cast<long>(records.size()); }

    long m_At = 1; // counted from 1; 0 before the first
    std::optional<std::vector<_variant_t>> m_Edited;
    std::map<std::wstring, Failure> m_Failures;
    bool m_HasFailed = false;
    std::vector<std::wstring> m_Done;
    std::map<std::wstring, long> m_Calls;
};

} // namespace ormisk::test
