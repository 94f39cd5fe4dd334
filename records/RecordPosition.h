#pragma once

namespace ormisk::records {

// Where a recordset stands: on a record, before the first, behind the last, or where a record was deleted.
class RecordPosition {
public:
    enum class Refusal { None, NoRecord, BadPosition };

    // Stands on the first record, if there is one.
    explicit RecordPosition(long count = 0);

    long Count() const { return m_Count; }
    bool AtStart() const { return !m_Deleted && (m_Count == 0 || m_Place < 1); }
    bool AtEnd() const { return !m_Deleted && (m_Count == 0 || m_Place > m_Count); }
    bool OnRecord() const { return !m_Deleted && m_Place >= 1 && m_Place <= m_Count; }
    bool OnDeleted() const { return m_Deleted; }
    bool IsBefore(const RecordPosition& other) const { return m_Place < other.m_Place; }
    // From 1; -1 unknown, -2 before the first, -3 behind the last.
    long Absolute() const;

    // A refused move leaves the position as it is.
    Refusal First();
    Refusal Last();
    Refusal By(long steps);
    Refusal By(long steps, long from); // from a record
    Refusal To(long place);

    // The current record goes, or one is added behind the last and becomes the current one.
    void Remove();
    void Append();
    // Another number of records; the first is the current one.
    void Reset(long count) { *this = RecordPosition(count); }

private:
    long m_Count;
    long m_Place; // from 1; of a deleted record that of the next one
    bool m_Deleted = false;
};

} // namespace ormisk::records
