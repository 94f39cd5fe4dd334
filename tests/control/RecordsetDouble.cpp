#include "RecordsetDouble.h"

#include "automation/ByName.h"

#include <algorithm>
#include <ranges>

namespace ormisk::test {

namespace {

constexpr IID Published(unsigned long number) {
    return {number, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
}
constexpr IID kOlderRecordset = Published(0x00000556), kNewerRecordset = Published(0x00001556);
constexpr IID kOlderEvents = Published(0x00000266), kNewerEvents = Published(0x00001266);

constexpr DISPID kRecordsetChangeComplete = 14, kWillMove = 15, kMoveComplete = 16;
constexpr long kStatusOk = 1, kStatusErrors = 2;
constexpr long kMovePrevious = 0x200, kUpdate = 0x1008000, kUpdateBatch = 0x10000;

constexpr WORD kGet = DISPATCH_PROPERTYGET, kGetPut = DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT;
const MemberNames kRecordsetMembers = {
    {L"State", kGet},
    {L"Fields", kGet},
    {L"BOF", kGet},
    {L"EOF", kGet},
    {L"AbsolutePosition", kGetPut},
    {L"RecordCount", kGet},
    {L"CursorType", kGet},
    {L"LockType", kGet},
    {L"EditMode", kGet},
    {L"Supports", DISPATCH_METHOD},
    {L"MoveFirst", DISPATCH_METHOD},
    {L"MovePrevious", DISPATCH_METHOD},
    {L"MoveNext", DISPATCH_METHOD},
    {L"MoveLast", DISPATCH_METHOD},
    {L"Update", DISPATCH_METHOD},
    {L"CancelUpdate", DISPATCH_METHOD},
};
const MemberNames kFieldsMembers = {{L"Count", kGet}, {L"Item", kGet}};
const MemberNames kFieldMembers = {
    {L"Name", kGet}, {L"Value", kGetPut}, {L"Type", kGet}, {L"Attributes", kGet}, {L"DefinedSize", kGet}};

// The type of the values that a field takes; VT_EMPTY for any.
VARTYPE TypeOf(long field) {
    static const std::map<long, VARTYPE> types = {
        {2, VT_I2},     {3, VT_I4},     {4, VT_R4},       {5, VT_R8},        {6, VT_CY},     {7, VT_DATE},
        {133, VT_DATE}, {135, VT_DATE}, {8, VT_BSTR},     {129, VT_BSTR},    {200, VT_BSTR}, {201, VT_BSTR},
        {202, VT_BSTR}, {11, VT_BOOL},  {14, VT_DECIMAL}, {131, VT_DECIMAL}, {16, VT_I1},    {17, VT_UI1},
        {18, VT_UI2},   {19, VT_UI4},   {20, VT_I8},      {21, VT_UI8}};
    const auto found = types.find(field);
    return found == types.end() ? static_cast<VARTYPE>(VT_EMPTY) : found->second;
}

[[noreturn]] void Raise(HRESULT number) {
    ormisk::Raise(number, number == kNoCurrentRecord ? L"No current record." : L"Not allowed.", L"Records");
}

// One field in the current record, whichever that is when it is asked.
class FieldDouble final : public NamedObject<> {
public:
    FieldDouble(RecordsetDouble& recordset, std::size_t index)
        : NamedObject(kFieldMembers), m_Recordset(&recordset), m_Index(index) {}

protected:
    _variant_t Do(const NamedCall& call) override {
        const std::wstring name = std::wstring(L"Field.") + call.name + (call.puts ? L"=" : L"");
        m_Recordset->Called(name);
        if (call.puts)
            return m_Recordset->WriteValue(m_Index, *call.argument), _variant_t();
        if (const auto found = m_Recordset->answers.find(name); found != m_Recordset->answers.end())
            return found->second;
        const FieldShape& shape = m_Recordset->fields.at(m_Index);
        if (name == L"Field.Name")
            return ToVariant(shape.name);
        if (name == L"Field.Value")
            return m_Recordset->ReadValue(m_Index);
        return name == L"Field.Type" ? shape.type : name == L"Field.Attributes" ? shape.attributes : shape.size;
    }
    HRESULT Fails(const AutomationError& error, EXCEPINFO* exception) override {
        return m_Recordset->describesFailures ? GiveException(error, exception) : error.number;
    }

private:
    const ComPtr<RecordsetDouble> m_Recordset;
    const std::size_t m_Index;
};

class FieldsDouble final : public NamedObject<> {
public:
    explicit FieldsDouble(RecordsetDouble& recordset) : NamedObject(kFieldsMembers), m_Recordset(&recordset) {}

protected:
    _variant_t Do(const NamedCall& call) override {
        const std::wstring name = std::wstring(L"Fields.") + call.name;
        m_Recordset->Called(name);
        if (const auto found = m_Recordset->answers.find(name); found != m_Recordset->answers.end())
            return found->second;
        if (name == L"Fields.Count")
            return static_cast<long>(m_Recordset->fields.size());
        CheckPointer(call.argument);
        const std::size_t index = m_Recordset->FindField(*call.argument);
        return Object(MakeObject<FieldDouble>(*m_Recordset.Get(), index).Get());
    }
    HRESULT Fails(const AutomationError& error, EXCEPINFO* exception) override {
        return m_Recordset->describesFailures ? GiveException(error, exception) : error.number;
    }

private:
    const ComPtr<RecordsetDouble> m_Recordset;
};

} // namespace

RecordsetEvents::RecordsetEvents() : ConnectionPoints(kNewerEvents) { AddSource(kOlderEvents); }

const IID& RecordsetEvents::Source() const { return older ? kOlderEvents : kNewerEvents; }

void* RecordsetEvents::FindInterface(REFIID iid) {
    if (iid == (older ? kOlderRecordset : kNewerRecordset))
        return static_cast<IDispatch*>(static_cast<RecordsetDouble*>(this));
    return iid == IID_IConnectionPointContainer && raisesEvents ? static_cast<IConnectionPointContainer*>(this)
                                                                : nullptr;
}

HRESULT RecordsetEvents::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (iid == Source())
        return ConnectionPoints::FindConnectionPoint(iid, point);
    return *point = nullptr, CONNECT_E_NOCONNECTION;
}

void RecordsetEvents::Tell(DISPID id, std::initializer_list<_variant_t> before, long status) {
    // Arguments count from the last one: the recordset, the status, and what comes before.
    std::vector<VARIANT> arguments{Object(static_cast<RecordsetDouble*>(this)).Detach(), Reference(VT_I4, &status)};
    for (const _variant_t& each : std::ranges::reverse_view(before))
        arguments.push_back(each);
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    for (const auto& sink : SinksOf(Source())) {
        const auto now = SinksOf(Source());
        if (std::ranges::find(now, sink) != now.end())
            static_cast<IDispatch*>(sink.Get())
                ->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }
    VariantClear(arguments.data());
}

RecordsetDouble::RecordsetDouble(std::vector<FieldShape> shapes, Records data)
    : NamedObject(kRecordsetMembers), fields(std::move(shapes)), records(std::move(data)) {}

std::vector<std::wstring> RecordsetDouble::AllMembers() {
    std::vector<std::wstring> all;
    const auto add = [&](const wchar_t* prefix, const MemberNames& members) {
        for (const MemberName& member : members) {
            all.push_back(std::wstring(prefix) + member.name);
            if (member.kinds & DISPATCH_PROPERTYPUT)
                all.push_back(all.back() + L"=");
        }
    };
    add(L"", kRecordsetMembers);
    add(L"Fields.", kFieldsMembers);
    add(L"Field.", kFieldMembers);
    return all;
}

void RecordsetDouble::Fail(const std::wstring& member, int nth, HRESULT number, const std::wstring& text) {
    m_Failures[member] = {nth, number, text};
}

std::wstring RecordsetDouble::Done() {
    std::wstring all;
    for (const auto& each : std::exchange(m_Done, {}))
        all += (all.empty() ? L"" : L"; ") + each;
    return all;
}

long RecordsetDouble::Calls(const std::wstring& member) const {
    const auto found = m_Calls.find(member);
    return found == m_Calls.end() ? 0 : found->second;
}

void RecordsetDouble::Called(const std::wstring& member) {
    ++m_Calls[member];
    if (onCall) {
        const auto act = onCall;
        act(member);
    }
    const auto found = m_Failures.find(member);
    if (found == m_Failures.end())
        return;
    if (found->second.nth > 1) {
        --found->second.nth;
        return;
    }
    const Failure due = found->second;
    if (due.nth == 1)
        m_Failures.erase(found);
    m_HasFailed = true;
    ormisk::Raise(due.number, due.text, L"Records");
}

void RecordsetDouble::RequireOpen() const {
    if (state == 0)
        Raise(kObjectClosed);
}

std::vector<_variant_t>& RecordsetDouble::Current() {
    RequireOpen();
    if (AtBegin() || AtEnd())
        Raise(kNoCurrentRecord);
    return m_Edited ? *m_Edited : records[static_cast<std::size_t>(m_At) - 1];
}

_variant_t RecordsetDouble::ReadValue(std::size_t field) { return Current().at(field); }

void RecordsetDouble::WriteValue(std::size_t field, const VARIANT& value) {
    const FieldShape& shape = fields.at(field);
    m_Done.push_back(shape.name + L"=" + (IsNull(value) ? L"Null" : TextOf(value)));
    const std::vector<_variant_t> before = Current();
    if (lockType == kReadOnlyLock || !(shape.attributes & kUpdatable))
        Raise(kNotCapable);
    _variant_t converted(value);
    const VARTYPE type = TypeOf(shape.type);
    if (!IsNull(value) && type != VT_EMPTY)
        CheckSystem(ConvertValue(value, type, converted));
    const bool tooLong = type == VT_BSTR && !IsNull(value) && std::ssize(TextOf(converted)) > shape.size;
    if (tooLong || (IsNull(value) && !(shape.attributes & kNullable)))
        Raise(kFieldError);
    if (!m_Edited)
        m_Edited = before;
    m_Edited->at(field) = converted;
}

std::size_t RecordsetDouble::FindField(const VARIANT& indexOrName) const {
    std::size_t index = 0;
    if (V_VT(&indexOrName) == VT_BSTR) {
        const std::wstring name = TextOf(indexOrName);
        while (index < fields.size() && _wcsicmp(fields[index].name.c_str(), name.c_str()) != 0)
            ++index;
    } else {
        index = static_cast<std::size_t>(static_cast<long>(_variant_t(indexOrName)));
    }
    if (index >= fields.size())
        Raise(kNoSuchItem);
    return index;
}

_variant_t RecordsetDouble::Do(const NamedCall& call) {
    const std::wstring name = std::wstring(call.name) + (call.puts ? L"=" : L"");
    Called(name);
    if (call.puts)
        return Move(kPositioned, static_cast<long>(_variant_t(*call.argument))), _variant_t();
    if (const auto found = answers.find(name); found != answers.end())
        return found->second;
    return ReadMember(name, call.argument);
}

HRESULT RecordsetDouble::Fails(const AutomationError& error, EXCEPINFO* exception) {
    return describesFailures ? GiveException(error, exception) : error.number;
}

_variant_t RecordsetDouble::ReadMember(const std::wstring& name, const VARIANT* argument) {
    if (name == L"State")
        return state;
    if (name == L"Fields")
        return Object(MakeObject<FieldsDouble>(*this).Get());
    if (name == L"CursorType")
        return cursorType;
    if (name == L"LockType")
        return lockType;
    RequireOpen();
    if (name == L"BOF" || name == L"EOF")
        return name == L"BOF" ? AtBegin() : AtEnd();
    if (name == L"AbsolutePosition")
        return AbsolutePosition();
    if (name == L"RecordCount")
        return countKnown ? static_cast<long>(records.size()) : -1L;
    if (name == L"EditMode")
        return m_Edited ? 1L : 0L;
    if (name == L"Supports") {
        CheckPointer(argument);
        const long asked = _variant_t(*argument);
        return (Abilities() & asked) == asked;
    }
    return Act(name), _variant_t();
}

long RecordsetDouble::Abilities() const {
    if (supported)
        return *supported;
    return (cursorType == kForwardOnly ? 0 : kMovePrevious) | (lockType == kReadOnlyLock ? 0 : kUpdate) |
           (lockType == kBatchOptimistic ? kUpdateBatch : 0);
}

_variant_t RecordsetDouble::AbsolutePosition() const {
    if (!positions && positionRaises)
        Raise(kNotCapable);
    return !positions ? -1L : AtBegin() ? -2L : AtEnd() ? -3L : m_At;
}

void RecordsetDouble::Act(const std::wstring& name) {
    if (name == L"Update")
        Update();
    else if (name == L"CancelUpdate")
        m_Done.push_back(name), m_Edited.reset();
    else
        MoveBy(name);
}

void RecordsetDouble::Update() {
    m_Done.emplace_back(L"Update");
    if (const auto edited = std::exchange(m_Edited, {}))
        records.at(static_cast<std::size_t>(m_At) - 1) = *edited;
}

void RecordsetDouble::MoveBy(const std::wstring& name) {
    const long last = static_cast<long>(records.size());
    if (name == L"MoveFirst")
        Move(kMovedFirst, 1);
    else if (name == L"MoveLast")
        Move(kMovedLast, last);
    else if (name == L"MoveNext")
        AtEnd() ? Raise(kNoCurrentRecord) : Move(kMovedNext, m_At + 1);
    else
        AtBegin() ? Raise(kNoCurrentRecord) : Move(kMovedPrevious, m_At - 1);
}

// What is still being edited is updated on the way.
void RecordsetDouble::Move(MoveReason reason, long target) {
    static const std::map<MoveReason, const wchar_t*> names = {
        {kPositioned, L"AbsolutePosition"}, {kMovedFirst, L"MoveFirst"}, {kMovedNext, L"MoveNext"},
        {kMovedPrevious, L"MovePrevious"},  {kMovedLast, L"MoveLast"},   {kRequeried, L"Requery"}};
    RequireOpen();
    m_Done.push_back(names.at(reason) + (reason == kPositioned ? L"=" + std::to_wstring(target) : L""));
    Tell(kWillMove, {static_cast<long>(reason)}, kStatusOk);
    try {
        RequireOpen();
        if (m_Edited) {
            Called(L"Update");
            Update();
        }
        if (cursorType == kForwardOnly && reason != kMovedNext && reason != kRequeried)
            Raise(kNoFetchBackward);
        if (reason == kPositioned && !positions)
            Raise(kNotCapable);
        if (reason == kPositioned && (target < 1 || target > static_cast<long>(records.size())))
            Raise(kBadArgument);
        if (records.empty() && reason != kRequeried)
            Raise(kNoCurrentRecord);
        m_At = target;
    } catch (...) {
        Tell(kMoveComplete, {static_cast<long>(reason), kNothing}, kStatusErrors);
        throw;
    }
    Tell(kMoveComplete, {static_cast<long>(reason), kNothing}, kStatusOk);
}

void RecordsetDouble::Host(const wchar_t* method) { InvokeByName(this, method, DISPATCH_METHOD); }

void RecordsetDouble::HostPositions(long position) {
    _variant_t value(position);
    InvokeByName(this, L"AbsolutePosition", DISPATCH_PROPERTYPUT, &value);
}

void RecordsetDouble::HostPuts(const wchar_t* field, const _variant_t& value) {
    WriteValue(FindField(_variant_t(field)), value);
}

void RecordsetDouble::HostCloses() {
    state = 0;
    m_Edited.reset();
    Tell(kRecordsetChangeComplete, {static_cast<long>(kClosed), kNothing}, kStatusOk);
}

void RecordsetDouble::HostRequeries() {
    Move(kRequeried, 1);
    Tell(kRecordsetChangeComplete, {static_cast<long>(kRequeried), kNothing}, kStatusOk);
}

std::wstring RecordsetDouble::Current(const wchar_t* field) const {
    const auto index = FindField(_variant_t(field));
    const _variant_t& value = m_Edited ? m_Edited->at(index) : records.at(static_cast<std::size_t>(m_At) - 1).at(index);
    return IsNull(value) ? L"Null" : TextOf(value);
}

} // namespace ormisk::test
