#include "records/RecordPosition.h"

namespace ormisk::records {

RecordPosition::RecordPosition(long count) : m_Count(count), m_Place(count > 0 ? 1 : 0) {}

long RecordPosition::Absolute() const {
    if (m_Deleted)
        return -1;
    if (AtStart())
        return -2;
    return AtEnd() ? -3 : m_Place;
}

RecordPosition::Refusal RecordPosition::First() { return m_Count == 0 ? By(0) : To(1); }

RecordPosition::Refusal RecordPosition::Last() { return m_Count == 0 ? By(0) : To(m_Count); }

RecordPosition::Refusal RecordPosition::By(long steps) {
    if (m_Deleted && steps > 0) {
        // The next record lies where the deleted one was.
        m_Deleted = false;
        m_Place = steps - 1 > m_Count - m_Place ? m_Count + 1 : m_Place + steps - 1;
        return Refusal::None;
    }
    if (m_Deleted && steps < 0) {
        m_Deleted = false;
        m_Place = steps < -m_Place ? 0 : m_Place + steps;
        return Refusal::None;
    }
    if ((steps == 0 && !OnRecord()) || (steps > 0 && AtEnd()) || (steps < 0 && AtStart()))
        return Refusal::NoRecord;
    if (steps > 0)
        m_Place = steps > m_Count - m_Place ? m_Count + 1 : m_Place + steps;
    else
        m_Place = steps < -m_Place ? 0 : m_Place + steps;
    return Refusal::None;
}

RecordPosition::Refusal RecordPosition::By(long steps, long from) {
    RecordPosition moved = *this;
    if (const Refusal refused = moved.To(from); refused != Refusal::None)
        return refused;
    if (const Refusal refused = moved.By(steps); refused != Refusal::None)
        return refused;
    *this = moved;
    return Refusal::None;
}

RecordPosition::Refusal RecordPosition::To(long place) {
    if (place < 1 || place > m_Count)
        return Refusal::BadPosition;
    m_Place = place;
    m_Deleted = false;
    return Refusal::None;
}

void RecordPosition::Remove() {
    --m_Count;
    m_Deleted = true;
}

void RecordPosition::Append() {
    m_Place = ++m_Count;
    m_Deleted = false;
}

} // namespace ormisk::records
