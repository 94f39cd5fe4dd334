#include "sources/Recordset.h"

#include "automation/Unknown.h"
#include "automation/Value.h"

#include <algorithm>

namespace ormisk {

namespace {

// The published identifiers, of the former version and of the present one: of the recordset, and of its events.
constexpr GUID Published(unsigned long number) {
    return {number, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
}
constexpr GUID kRecordset[] = {Published(0x1556), Published(0x0556)};
constexpr GUID kEvents[] = {Published(0x1266), Published(0x0266)};

// Numbers of the published enumerations.
constexpr std::int32_t kClosed = 0;
constexpr std::int32_t kForwardOnly = 0;
constexpr std::int32_t kOptimistic = 3;
constexpr std::int32_t kNotEdited = 0;
constexpr std::int32_t kErrorsOccurred = 2; // status of an event
constexpr std::int32_t kMovesBack = 0x200;
constexpr std::int32_t kUpdates = 0x1008000;
constexpr std::int32_t kUpdatesBatch = 0x10000;
constexpr std::int32_t kUpdatable = 4;
constexpr std::int32_t kNullable = 32;

// Numbers of the events.
constexpr DISPID kRecordsetChangeComplete = 14;
constexpr DISPID kWillMove = 15;
constexpr DISPID kMoveComplete = 16;

_variant_t GetOf(IDispatch* object, const wchar_t* property) {
    return InvokeByName(object, property, DISPATCH_PROPERTYGET);
}

std::int32_t LongOf(const VARIANT& value) {
    _variant_t number;
    CheckSystem(ConvertValue(value, VT_I4, number));
    return V_I4(&number);
}

// Counts and positions are 64 bits wide in a process of that width.
std::int64_t WideOf(const VARIANT& value) {
    _variant_t number;
    CheckSystem(ConvertValue(value, VT_I8, number));
    return V_I8(&number);
}

bool FlagOf(const VARIANT& value) {
    _variant_t flag;
    CheckSystem(ConvertValue(value, VT_BOOL, flag));
    return V_BOOL(&flag) != VARIANT_FALSE;
}

bool Answers(IUnknown* object, REFIID iid) {
    ComPtr<IUnknown> found;
    return object && SUCCEEDED(object->QueryInterface(iid, reinterpret_cast<void**>(found.GetAddressOf()))) && found;
}

} // namespace

RecordField::RecordField(const _variant_t& field) : m_Field(DispatchOf(field)) { CheckPointer(m_Field.Get()); }

std::wstring RecordField::Name() const { return TextOf(GetOf(m_Field.Get(), L"Name")); }

_variant_t RecordField::Value() const { return GetOf(m_Field.Get(), L"Value"); }

void RecordField::SetValue(const VARIANT& value) const {
    _variant_t argument(value);
    InvokeByName(m_Field.Get(), L"Value", DISPATCH_PROPERTYPUT, &argument);
}

std::int32_t RecordField::Type() const { return LongOf(GetOf(m_Field.Get(), L"Type")); }

std::int64_t RecordField::DefinedSize() const { return WideOf(GetOf(m_Field.Get(), L"DefinedSize")); }

bool RecordField::IsUpdatable() const { return (LongOf(GetOf(m_Field.Get(), L"Attributes")) & kUpdatable) != 0; }

bool RecordField::IsNullable() const { return (LongOf(GetOf(m_Field.Get(), L"Attributes")) & kNullable) != 0; }

RecordFields::RecordFields(const _variant_t& fields) : m_Fields(DispatchOf(fields)) { CheckPointer(m_Fields.Get()); }

std::int32_t RecordFields::Count() const { return LongOf(GetOf(m_Fields.Get(), L"Count")); }

RecordField RecordFields::Item(_variant_t index) const {
    return RecordField(InvokeByName(m_Fields.Get(), L"Item", DISPATCH_PROPERTYGET | DISPATCH_METHOD, &index));
}

RecordField RecordFields::At(std::int32_t index) const { return Item(_variant_t(static_cast<long>(index))); }

RecordField RecordFields::Find(const std::wstring& name) const { return Item(ToVariant(name)); }

Recordset::Recordset(IDispatch* object) : m_Object(object) {
    if (std::ranges::none_of(kRecordset, [&](REFIID iid) { return Answers(object, iid); }))
        Raise(ErrorCode::InvalidRecordset);
}

bool Recordset::operator==(const Recordset& other) const { return SameObject(m_Object.Get(), other.m_Object.Get()); }

_variant_t Recordset::Get(const wchar_t* property) const { return GetOf(m_Object.Get(), property); }

bool Recordset::Is(const wchar_t* property) const { return FlagOf(Get(property)); }

void Recordset::Call(const wchar_t* method) const { InvokeByName(m_Object.Get(), method, DISPATCH_METHOD); }

bool Recordset::IsOpen() const { return LongOf(Get(L"State")) != kClosed; }

bool Recordset::IsBof() const { return Is(L"BOF"); }

bool Recordset::IsEof() const { return Is(L"EOF"); }

std::int64_t Recordset::RecordCount() const { return WideOf(Get(L"RecordCount")); }

std::int64_t Recordset::AbsolutePosition() const { return WideOf(Get(L"AbsolutePosition")); }

void Recordset::SetAbsolutePosition(std::int32_t position) const {
    _variant_t argument(static_cast<long>(position));
    InvokeByName(m_Object.Get(), L"AbsolutePosition", DISPATCH_PROPERTYPUT, &argument);
}

bool Recordset::IsForwardOnly() const { return LongOf(Get(L"CursorType")) == kForwardOnly; }

bool Recordset::UpdatesAtOnce() const { return LongOf(Get(L"LockType")) == kOptimistic; }

bool Recordset::IsBeingEdited() const { return LongOf(Get(L"EditMode")) != kNotEdited; }

bool Recordset::Supports(std::int32_t options) const {
    _variant_t argument(static_cast<long>(options));
    return FlagOf(InvokeByName(m_Object.Get(), L"Supports", DISPATCH_METHOD, &argument));
}

bool Recordset::CanUpdate() const { return Supports(kUpdates) || Supports(kUpdatesBatch); }

bool Recordset::CanMoveBack() const { return Supports(kMovesBack); }

void Recordset::MoveFirst() const { Call(L"MoveFirst"); }

void Recordset::MovePrevious() const { Call(L"MovePrevious"); }

void Recordset::MoveNext() const { Call(L"MoveNext"); }

void Recordset::MoveLast() const { Call(L"MoveLast"); }

void Recordset::Update() const { Call(L"Update"); }

void Recordset::CancelUpdate() const { Call(L"CancelUpdate"); }

RecordFields Recordset::Fields() const { return RecordFields(Get(L"Fields")); }

class RecordsetConnection::Sink final : public Unknown<IDispatch> {
public:
    explicit Sink(RecordsetListener& listener) : m_Listener(&listener) {}
    void Cut() { m_Listener = nullptr; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool events = std::ranges::find(kEvents, iid) != std::end(kEvents);
        return Unknown::QueryInterface(events ? __uuidof(IDispatch) : iid, object);
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count)
            return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override {
        const ComPtr<Sink> alive(this);
        IgnoringFailures([&] { Tell(id, parameters); });
        return S_OK;
    }

private:
    void Tell(DISPID id, const DISPPARAMS* parameters) {
        if (!m_Listener)
            return;
        if (id == kWillMove)
            m_Listener->WillMove();
        else if (id == kRecordsetChangeComplete)
            m_Listener->RecordsetChangeComplete();
        else if (id == kMoveComplete && parameters && parameters->cArgs > 0 && !HasFailed(*parameters))
            m_Listener->MoveComplete(static_cast<MoveReason>(LongOf(parameters->rgvarg[parameters->cArgs - 1])));
    }
    // Reason, error, status and recordset, of which the last comes first. Without a status it has been done.
    static bool HasFailed(const DISPPARAMS& parameters) {
        std::int32_t status = 0;
        IgnoringFailures([&] { status = parameters.cArgs == 4 ? LongOf(parameters.rgvarg[1]) : 0; });
        return status == kErrorsOccurred;
    }

    RecordsetListener* m_Listener;
};

RecordsetConnection::RecordsetConnection(const Recordset& recordset, RecordsetListener& listener)
    : m_Sink(Adopt(new Sink(listener))) {
    const ComPtr<IConnectionPointContainer> container = Query<IConnectionPointContainer>(recordset.Object());
    for (const GUID& events : kEvents)
        if (container && SUCCEEDED(container->FindConnectionPoint(events, m_Point.ReleaseAndGetAddressOf())) &&
            m_Point && SUCCEEDED(m_Point->Advise(m_Sink.Get(), &m_Cookie)))
            return;
    m_Point = nullptr;
}

// A recordset that keeps the sink all the same finds nobody behind it.
RecordsetConnection::~RecordsetConnection() {
    m_Sink->Cut();
    if (m_Point)
        m_Point->Unadvise(m_Cookie);
}

} // namespace ormisk
