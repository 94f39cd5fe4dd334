#pragma once

#include "records/RecordEvents.h"
#include "records/RecordPosition.h"
#include "records/RecordTable.h"

#include <functional>

namespace ormisk::records {

// What a recordset does: where it stands, the record there and the edit of it, with the events that go with that.
// Whatever is refused raises and leaves all of it as it was.
class RecordCursor {
public:
    using Refusal = RecordPosition::Refusal;
    using Step = std::function<Refusal(RecordPosition&)>;
    struct Source {
        std::wstring connection;
        std::wstring text;
        SourceKind kind = SourceKind::Guess;
        LockTypeEnum lock = adLockReadOnly;
        bool forwardOnly = false;
    };

    explicit RecordCursor(RecordEvents& events) : m_Events(events) {}

    // A source that gives no rows leaves it closed.
    void Open(const Source& source);
    void Close();
    void Drop(); // without a word
    bool IsOpen() const { return m_Table != nullptr; }
    // These raise when it is closed.
    RecordTable& Table() const;
    bool Writes() const { return Table().HasKey() && m_Lock != adLockReadOnly; }
    // Whether updates are kept until they are all written at once.
    bool IsBatch() const { return Writes() && m_Lock == adLockBatchOptimistic; }
    bool AtStart() const { return Table(), !m_Adding && m_Position.AtStart(); }
    bool AtEnd() const { return Table(), !m_Adding && m_Position.AtEnd(); }
    bool IsForwardOnly() const { return Table(), m_ForwardOnly; }
    long Count() const { return IsForwardOnly() ? -1 : Table().Count(); }
    long Absolute() const;
    void NeedScrolling() const;
    EditModeEnum EditMode() const;

    // A pending edit is written first.
    void Move(EventReasonEnum reason, const Step& step);
    double Bookmark() const;
    void GoTo(double bookmark, long steps = 0);
    long PlaceOf(double bookmark) const; // from 1

    // The value of a field as the edit has it, as the record had it when it was read, and as it is now.
    _variant_t Value(std::size_t column) const;
    _variant_t Original(std::size_t column) const;
    _variant_t Underlying(std::size_t column) const;
    void Put(std::size_t column, const VARIANT& value, IDispatch* field);

    void AddNew();
    void Update();
    void CancelUpdate();
    void UpdateBatch(); // all of it or nothing
    void CancelBatch();
    void Delete();
    void Requery();
    void Resync();

private:
    bool IsPending() const { return m_Adding || !m_Changes.empty(); }
    void NeedNothingPending() const;
    void NeedWriting() const;
    void NeedRowWriting() const;
    void NeedRecord() const;
    std::optional<Row> RowAt(const RecordPosition& position) const;
    void Write();
    void ForgetEdit();
    double Current() const;
    void NeedCurrent(double id) const;
    template <class F> void ChangeRecord(EventReasonEnum reason, F&& operation);

    RecordEvents& m_Events;
    std::unique_ptr<RecordTable> m_Table;
    RecordPosition m_Position;
    std::optional<Row> m_Row; // of the current record, unless somebody else deleted it
    Changes m_Changes;
    bool m_Adding = false;
    std::map<double, Changes> m_Batch; // by the number of the record
    LockTypeEnum m_Lock = adLockReadOnly;
    bool m_ForwardOnly = false;
};

} // namespace ormisk::records
