#include "records/Recordset.h"

#include "automation/Give.h"
#include "records/FormerInterfaces.h"
#include "records/RecordFields.h"
#include "records/ScriptCalls.h"

#include <algorithm>
#include <limits>

namespace ormisk::records {

namespace {

// Places that can be given instead of a bookmark.
enum Start { kCurrent = 0, kFirst = 1, kLast = 2 };

std::wstring TextGiven(const VARIANT& value, const std::wstring& otherwise, Failure failure) {
    const _variant_t plain = Plain(value);
    if (IsMissing(plain) || V_VT(&plain) == VT_EMPTY)
        return otherwise;
    if (V_VT(&plain) != VT_BSTR)
        Raise(failure);
    return TextOf(plain);
}

SourceKind KindOf(LONG options) {
    if (options == adOptionUnspecified)
        return SourceKind::Guess;
    if (options & (adCmdTable | adCmdTableDirect))
        return SourceKind::Table;
    return options & adCmdText ? SourceKind::Command : SourceKind::Guess;
}

long InRange(ADO_LONGPTR number) {
    return static_cast<long>(
        std::clamp<ADO_LONGPTR>(number, std::numeric_limits<long>::min(), std::numeric_limits<long>::max()));
}

} // namespace

_variant_t Missing() {
    _variant_t missing;
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    return missing;
}

Recordset::Recordset() : m_Events(*this, this), m_Cursor(m_Events) { AddSource(kFormerEvents); }

Recordset::~Recordset() = default;

ComPtr<RecordField> Recordset::FieldAt(std::size_t column) {
    if (column >= m_FieldOf.size())
        m_FieldOf.resize(column + 1);
    if (!m_FieldOf[column])
        m_FieldOf[column] = std::make_unique<RecordField>(*this, column);
    return m_FieldOf[column].get();
}

HRESULT Recordset::QueryOther(REFIID iid, void** object) {
    return GiveFormer(static_cast<::_Recordset*>(this), iid, object, {0x534, 0x50E, 0x54F, 0x555, 0x556});
}

STDMETHODIMP Recordset::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, UINT* badArgument) {
    const ComPtr<Recordset> alive(this);
    if (IsPutOfField(id, flags, parameters)) {
        ComPtr<::Fields> fields;
        const HRESULT hr = get_Fields(fields.GetAddressOf());
        return FAILED(hr) ? hr : PutField(fields.Get(), locale, flags, parameters, exception);
    }
    const HRESULT hr = DispatchObject::Invoke(id, iid, locale, flags, parameters, result, exception, badArgument);
    if (SUCCEEDED(hr))
        NarrowForScripts(id, result);
    return hr;
}

std::size_t Recordset::FindField(const VARIANT& index) {
    _variant_t plain;
    CheckSystem(ResolveDefault(index, plain));
    const std::vector<Column>& columns = m_Cursor.Table().Columns();
    if (V_VT(&plain) == VT_BSTR) {
        const std::wstring name = TextOf(plain);
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (CompareStringOrdinal(columns[i].name.c_str(), -1, name.c_str(), -1, TRUE) == CSTR_EQUAL)
                return i;
        Raise(Failure::ItemNotFound);
    }
    _variant_t number;
    if (FAILED(ConvertValue(plain, VT_I4, number)) || V_I4(&number) < 0 ||
        static_cast<std::size_t>(V_I4(&number)) >= columns.size())
        Raise(Failure::ItemNotFound);
    return static_cast<std::size_t>(V_I4(&number));
}

void Recordset::NeedClosed() const {
    if (m_Cursor.IsOpen())
        Raise(Failure::ObjectOpen);
}

STDMETHODIMP Recordset::Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType, LockTypeEnum lockType,
                             LONG options) {
    return Run([&] {
        NeedClosed();
        const std::wstring text = TextGiven(source, m_Source, Failure::InvalidArgument);
        const std::wstring target = TextGiven(connection, m_Connection, Failure::InvalidConnection);
        if (target.empty())
            Raise(Failure::InvalidConnection);
        if (text.empty())
            Raise(Failure::InvalidArgument);
        const LockTypeEnum lock = lockType == adLockUnspecified ? m_LockType : lockType;
        const CursorTypeEnum type = cursorType == adOpenUnspecified ? m_CursorType : cursorType;
        const bool forwardOnly = type == adOpenForwardOnly && m_Location == adUseServer;
        m_Cursor.Open({target, text, KindOf(options), lock, forwardOnly});
        m_Source = text;
        m_Connection = target;
        m_LockType = lock;
        m_CursorType = type;
    });
}

STDMETHODIMP Recordset::Close() {
    return Run([&] { m_Cursor.Close(); });
}

STDMETHODIMP Recordset::Requery(LONG) {
    return Run([&] { m_Cursor.Requery(); });
}

STDMETHODIMP Recordset::Resync(AffectEnum, ResyncEnum) {
    return Run([&] { m_Cursor.Resync(); });
}

STDMETHODIMP Recordset::MoveFirst() {
    return Run([&] { m_Cursor.Move(adRsnMoveFirst, [](RecordPosition& position) { return position.First(); }); });
}

STDMETHODIMP Recordset::MoveLast() {
    return Run([&] {
        m_Cursor.NeedScrolling();
        m_Cursor.Move(adRsnMoveLast, [](RecordPosition& position) { return position.Last(); });
    });
}

STDMETHODIMP Recordset::MoveNext() {
    return Run([&] { m_Cursor.Move(adRsnMoveNext, [](RecordPosition& position) { return position.By(1); }); });
}

STDMETHODIMP Recordset::MovePrevious() {
    return Run([&] { m_Cursor.Move(adRsnMovePrevious, [](RecordPosition& position) { return position.By(-1); }); });
}

STDMETHODIMP Recordset::Move(ADO_LONGPTR steps, VARIANT start) {
    return Run([&] {
        const long count = InRange(steps);
        const _variant_t from = Plain(start);
        if (V_VT(&from) == VT_R8)
            return m_Cursor.GoTo(V_R8(&from), count);
        _variant_t place(static_cast<long>(kCurrent));
        if (!IsMissing(from) && FAILED(ConvertValue(from, VT_I4, place)))
            Raise(Failure::InvalidArgument);
        m_Cursor.Move(adRsnMove, [&](RecordPosition& position) {
            if (V_I4(&place) == kCurrent)
                return position.By(count);
            return position.By(count, V_I4(&place) == kLast ? position.Count() : 1);
        });
    });
}

STDMETHODIMP Recordset::get_AbsolutePosition(PositionEnum_Param* position) {
    return Run([&] { Give(position, [&] { return m_Cursor.Absolute(); }); });
}

STDMETHODIMP Recordset::put_AbsolutePosition(PositionEnum_Param place) {
    return Run([&] {
        m_Cursor.NeedScrolling();
        m_Cursor.Move(adRsnMove, [&](RecordPosition& position) { return position.To(InRange(place)); });
    });
}

STDMETHODIMP Recordset::get_BOF(VARIANT_BOOL* bof) {
    return Run([&] { Give(bof, [&] { return m_Cursor.AtStart(); }); });
}

STDMETHODIMP Recordset::get_EOF(VARIANT_BOOL* eof) {
    return Run([&] { Give(eof, [&] { return m_Cursor.AtEnd(); }); });
}

STDMETHODIMP Recordset::get_RecordCount(ADO_LONGPTR* count) {
    return Run([&] { Give(count, [&] { return m_Cursor.Count(); }); });
}

STDMETHODIMP Recordset::get_Bookmark(VARIANT* bookmark) {
    return Run([&] { Give(bookmark, _variant_t(m_Cursor.Bookmark())); });
}

double Recordset::BookmarkOf(const VARIANT& value) const {
    const _variant_t plain = Plain(value);
    if (V_VT(&plain) != VT_R8)
        Raise(Failure::InvalidArgument);
    return V_R8(&plain);
}

STDMETHODIMP Recordset::put_Bookmark(VARIANT bookmark) {
    return Run([&] { m_Cursor.GoTo(BookmarkOf(bookmark)); });
}

STDMETHODIMP Recordset::CompareBookmarks(VARIANT first, VARIANT second, CompareEnum* result) {
    return Run([&] {
        Give(result, [&] {
            const long a = m_Cursor.PlaceOf(BookmarkOf(first));
            const long b = m_Cursor.PlaceOf(BookmarkOf(second));
            return a < b ? adCompareLessThan : a > b ? adCompareGreaterThan : adCompareEqual;
        });
    });
}

STDMETHODIMP Recordset::get_Fields(::Fields** fields) {
    return Run([&] {
        CheckPointer(fields);
        if (!m_Fields)
            m_Fields = std::make_unique<RecordFields>(*this);
        Give(fields, ComPtr<::Fields>(m_Fields.get()));
    });
}

void Recordset::PutFields(const VARIANT& fields, const VARIANT& values) {
    if (IsMissing(fields))
        return;
    const std::vector<_variant_t> names = ElementsOf(fields);
    const std::vector<_variant_t> given = ElementsOf(values);
    if (names.size() != given.size())
        Raise(Failure::InvalidArgument);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::size_t column = FindField(names[i]);
        m_Cursor.Put(column, given[i], FieldAt(column).Get());
    }
}

STDMETHODIMP Recordset::AddNew(VARIANT fields, VARIANT values) {
    return Run([&] {
        m_Cursor.AddNew();
        PutFields(fields, values);
        if (!IsMissing(fields))
            m_Cursor.Update();
    });
}

STDMETHODIMP Recordset::Update(VARIANT fields, VARIANT values) {
    return Run([&] {
        PutFields(fields, values);
        m_Cursor.Update();
    });
}

STDMETHODIMP Recordset::CancelUpdate() {
    return Run([&] { m_Cursor.CancelUpdate(); });
}

// Whatever records are named: all that are kept.
STDMETHODIMP Recordset::UpdateBatch(AffectEnum) {
    return Run([&] { m_Cursor.UpdateBatch(); });
}

STDMETHODIMP Recordset::CancelBatch(AffectEnum) {
    return Run([&] { m_Cursor.CancelBatch(); });
}

STDMETHODIMP Recordset::Delete(AffectEnum affected) {
    return Run([&] {
        if (affected != adAffectCurrent)
            Raise(Failure::FeatureNotAvailable);
        m_Cursor.Delete();
    });
}

STDMETHODIMP Recordset::get_Collect(VARIANT index, VARIANT* value) {
    return Run([&] { Give(value, m_Cursor.Value(FindField(index))); });
}

STDMETHODIMP Recordset::put_Collect(VARIANT index, VARIANT value) {
    return Run([&] { PutFields(index, value); });
}

STDMETHODIMP Recordset::Supports(CursorOptionEnum options, VARIANT_BOOL* supported) {
    return Run([&] {
        Give(supported, [&] {
            long can = adHoldRecords | adResync | adNotify;
            if (!m_Cursor.IsForwardOnly())
                can |= adMovePrevious | adBookmark | adApproxPosition;
            if (m_Cursor.IsBatch())
                can |= adUpdate | adUpdateBatch;
            else if (m_Cursor.Writes())
                can |= adAddNew | adDelete | adUpdate;
            return (options & ~can) == 0;
        });
    });
}

} // namespace ormisk::records
