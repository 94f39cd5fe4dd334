#include "records/RecordCursor.h"

#include "records/FieldValue.h"

namespace ormisk::records {

namespace {

void CheckMove(RecordPosition::Refusal refusal) {
    if (refusal == RecordPosition::Refusal::NoRecord)
        Raise(Failure::NoCurrentRecord);
    if (refusal == RecordPosition::Refusal::BadPosition)
        Raise(Failure::InvalidArgument);
}

_variant_t Reason(EventReasonEnum reason) { return static_cast<long>(reason); }

_variant_t ArrayOf(IDispatch* object) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    if (!array)
        throw std::bad_alloc();
    _variant_t value;
    V_VT(&value) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&value) = array;
    LONG index = 0;
    _variant_t element(object);
    CheckSystem(SafeArrayPutElement(array, &index, &element));
    return value;
}

} // namespace

template <class F> void RecordCursor::ChangeRecord(EventReasonEnum reason, F&& operation) {
    const double id = Current();
    WithEvents(m_Events, RecordEvent::WillChangeRecord, RecordEvent::RecordChangeComplete, {Reason(reason), 1L}, [&] {
        NeedCurrent(id);
        operation();
    });
}

// What tells the current record from every other, also from those of a recordset that is opened anew.
double RecordCursor::Current() const {
    constexpr double kNone = 0;
    constexpr double kAdded = -1;
    if (m_Adding)
        return kAdded;
    return m_Position.OnRecord() ? Table().IdOf(m_Position.Absolute() - 1) : kNone;
}

// After a call of the host, which may have closed or moved the recordset: what is done is for the record that it began
// on.
void RecordCursor::NeedCurrent(double id) const {
    Table();
    if (Current() != id)
        Raise(Failure::IllegalOperation);
}

RecordTable& RecordCursor::Table() const {
    if (!m_Table)
        Raise(Failure::ObjectClosed);
    return *m_Table;
}

void RecordCursor::Open(const Source& source) {
    if (m_Table)
        Raise(Failure::ObjectOpen);
    WithEvents(m_Events, RecordEvent::WillMove, RecordEvent::MoveComplete, {Reason(adRsnMove)}, [&] {
        auto table = std::make_unique<RecordTable>(source.connection, source.text, source.kind);
        if (m_Table)
            Raise(Failure::ObjectOpen); // by a handler
        if (table->Columns().empty())
            return;
        const RecordPosition position(table->Count());
        std::optional<Row> row = position.OnRecord() ? table->Read(0) : std::nullopt;
        m_Table = std::move(table);
        m_Position = position;
        m_Row = std::move(row);
        m_Lock = source.lock;
        m_ForwardOnly = source.forwardOnly;
    });
}

void RecordCursor::Close() {
    Table();
    NeedNothingPending();
    WithEvents(m_Events, RecordEvent::WillChangeRecordset, RecordEvent::RecordsetChangeComplete, {Reason(adRsnClose)},
               [&] { Drop(); });
}

void RecordCursor::Drop() {
    ForgetEdit();
    m_Batch.clear();
    m_Row.reset();
    m_Table.reset();
}

EditModeEnum RecordCursor::EditMode() const {
    Table();
    if (m_Adding)
        return adEditAdd;
    if (m_Position.OnDeleted())
        return adEditDelete;
    return m_Changes.empty() ? adEditNone : adEditInProgress;
}

void RecordCursor::NeedNothingPending() const {
    if (IsPending())
        Raise(Failure::IllegalOperation);
}

void RecordCursor::NeedWriting() const {
    if (!Writes())
        Raise(Failure::FeatureNotAvailable);
}

// Of a batch, only changes of records are kept.
void RecordCursor::NeedRowWriting() const {
    NeedWriting();
    if (IsBatch())
        Raise(Failure::FeatureNotAvailable);
}

void RecordCursor::NeedRecord() const {
    Table();
    if (!m_Adding && (!m_Position.OnRecord() || !m_Row))
        Raise(Failure::NoCurrentRecord);
}

std::optional<Row> RecordCursor::RowAt(const RecordPosition& position) const {
    return position.OnRecord() ? Table().Read(position.Absolute() - 1) : std::nullopt;
}

void RecordCursor::Move(EventReasonEnum reason, const Step& step) {
    Table();
    Update();
    WithEvents(m_Events, RecordEvent::WillMove, RecordEvent::MoveComplete, {Reason(reason)}, [&] {
        Update(); // of what a handler has edited
        RecordPosition position = m_Position;
        CheckMove(step(position));
        if (m_ForwardOnly && position.IsBefore(m_Position))
            Raise(Failure::FeatureNotAvailable);
        m_Row = RowAt(position);
        const bool reachesEnd = position.AtEnd() && !m_Position.AtEnd();
        m_Position = position;
        if (reachesEnd)
            m_Events.EndOfRecordset();
    });
}

long RecordCursor::Absolute() const {
    constexpr long kUnknown = -1;
    Table();
    const bool known = !m_Adding && !(m_ForwardOnly && m_Position.OnRecord());
    return known ? m_Position.Absolute() : kUnknown;
}

void RecordCursor::NeedScrolling() const {
    if (IsForwardOnly())
        Raise(Failure::FeatureNotAvailable);
}

double RecordCursor::Bookmark() const {
    NeedScrolling();
    if (m_Adding || !m_Position.OnRecord())
        Raise(Failure::NoCurrentRecord);
    return m_Table->IdOf(m_Position.Absolute() - 1);
}

long RecordCursor::PlaceOf(double bookmark) const {
    NeedScrolling();
    const std::optional<long> place = Table().PlaceOf(bookmark);
    if (!place)
        Raise(Failure::InvalidArgument);
    return *place + 1;
}

void RecordCursor::GoTo(double bookmark, long steps) {
    PlaceOf(bookmark);
    Move(adRsnMove, [&](RecordPosition& position) { return position.By(steps, PlaceOf(bookmark)); });
}

_variant_t RecordCursor::Value(std::size_t column) const {
    NeedRecord();
    const auto changed = m_Changes.find(column);
    if (changed != m_Changes.end())
        return changed->second;
    if (const auto batch = m_Batch.find(Current()); batch != m_Batch.end())
        if (const auto kept = batch->second.find(column); kept != batch->second.end())
            return kept->second;
    return m_Adding ? NullValue() : (*m_Row)[column];
}

_variant_t RecordCursor::Original(std::size_t column) const {
    NeedRecord();
    return m_Adding ? NullValue() : (*m_Row)[column];
}

_variant_t RecordCursor::Underlying(std::size_t column) const {
    NeedRecord();
    if (m_Adding)
        return NullValue();
    const std::optional<Row> row = RowAt(m_Position);
    if (!row)
        Raise(Failure::NoCurrentRecord);
    return (*row)[column];
}

void RecordCursor::Put(std::size_t column, const VARIANT& value, IDispatch* field) {
    NeedWriting();
    NeedRecord();
    const double id = Current();
    const FieldType type = m_Table->Columns()[column].type;
    const _variant_t converted = ToFieldValue(value, type);
    NeedCurrent(id);
    const auto put = [&] {
        WithEvents(m_Events, RecordEvent::WillChangeField, RecordEvent::FieldChangeComplete, {1L, ArrayOf(field)}, [&] {
            NeedCurrent(id);
            NeedRecord();
            m_Changes[column] = converted;
        });
    };
    if (IsPending())
        put();
    else
        ChangeRecord(adRsnFirstChange, put);
}

void RecordCursor::ForgetEdit() {
    m_Changes.clear();
    m_Adding = false;
}

void RecordCursor::AddNew() {
    NeedRowWriting();
    Update();
    // The new record is where the recordset stands from now on.
    WithEvents(m_Events, RecordEvent::WillMove, RecordEvent::MoveComplete, {Reason(adRsnAddNew)}, [&] {
        Update(); // what a handler began on the record that is left
        ChangeRecord(adRsnAddNew, [&] {
            NeedNothingPending();
            m_Adding = true;
        });
    });
}

void RecordCursor::Update() {
    Table();
    if (IsPending())
        ChangeRecord(adRsnUpdate, [&] { Write(); });
}

void RecordCursor::Write() {
    if (!IsPending())
        return; // a handler has done it
    if (IsBatch()) {
        m_Changes.merge(m_Batch[Current()]); // keeps the later ones
        m_Batch[Current()] = std::move(m_Changes);
        return ForgetEdit();
    }
    if (m_Adding) {
        m_Table->Insert(m_Changes);
        m_Position.Append();
    } else {
        m_Table->Update(m_Position.Absolute() - 1, m_Changes);
    }
    ForgetEdit();
    m_Row = RowAt(m_Position);
}

void RecordCursor::CancelUpdate() {
    Table();
    if (m_Adding)
        WithEvents(m_Events, RecordEvent::WillMove, RecordEvent::MoveComplete, {Reason(adRsnUndoAddNew)}, [&] {
            if (m_Adding)
                ChangeRecord(adRsnUndoAddNew, [&] { ForgetEdit(); });
        });
    else if (IsPending())
        ChangeRecord(adRsnUndoUpdate, [&] { ForgetEdit(); });
}

void RecordCursor::UpdateBatch() {
    Update();
    if (m_Batch.empty())
        return;
    ChangeRecord(adRsnUpdate, [&] {
        NeedNothingPending();
        m_Table->Update(m_Batch);
        m_Batch.clear();
        m_Row = RowAt(m_Position);
    });
}

void RecordCursor::CancelBatch() {
    CancelUpdate();
    if (!m_Batch.empty())
        ChangeRecord(adRsnUndoUpdate, [&] { m_Batch.clear(); });
}

void RecordCursor::Delete() {
    NeedRowWriting();
    NeedNothingPending();
    NeedRecord();
    ChangeRecord(adRsnDelete, [&] {
        NeedNothingPending();
        NeedRecord();
        m_Table->Delete(m_Position.Absolute() - 1);
        m_Position.Remove();
        m_Row.reset();
    });
}

void RecordCursor::Requery() {
    Table();
    NeedNothingPending();
    const std::vector<_variant_t> reason = {Reason(adRsnRequery)};
    WithEvents(m_Events, RecordEvent::WillChangeRecordset, RecordEvent::RecordsetChangeComplete, reason, [&] {
        WithEvents(m_Events, RecordEvent::WillMove, RecordEvent::MoveComplete, reason, [&] {
            Table();
            NeedNothingPending();
            m_Table->Load();
            m_Batch.clear();
            m_Position.Reset(m_Table->Count());
            m_Row = RowAt(m_Position);
        });
    });
}

void RecordCursor::Resync() {
    Table();
    NeedNothingPending();
    WithEvents(m_Events, RecordEvent::WillChangeRecordset, RecordEvent::RecordsetChangeComplete, {Reason(adRsnResynch)},
               [&] {
                   Table();
                   NeedNothingPending();
                   m_Row = RowAt(m_Position);
               });
}

} // namespace ormisk::records
