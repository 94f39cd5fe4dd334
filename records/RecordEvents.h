#pragma once

#include "automation/Events.h"
#include "records/Failures.h"

#include <vector>

#include <contract.h>

namespace ormisk::records {

// The events by their published numbers.
enum class RecordEvent : DISPID {
    WillChangeField = 9,
    FieldChangeComplete = 10,
    WillChangeRecord = 11,
    RecordChangeComplete = 12,
    WillChangeRecordset = 13,
    RecordsetChangeComplete = 14,
    WillMove = 15,
    MoveComplete = 16,
    EndOfRecordset = 17,
};

// The identifier that the event interface had before; sinks of it are called, too.
extern const IID kFormerEvents;

// Raises the events of a recordset. What a handler raises reaches the caller of the operation.
class RecordEvents {
public:
    RecordEvents(ConnectionPoints& points, IDispatch* recordset) : m_Points(points), m_Recordset(recordset) {}

    // The event before an operation, with what it tells before its status: whether no handler cancelled. Handlers that
    // call the operation that they are told of, and so on without an end, are refused it.
    bool Will(RecordEvent event, std::vector<_variant_t> arguments);
    // The event after it, with what went wrong, if anything did.
    void Complete(RecordEvent event, std::vector<_variant_t> arguments, const AutomationError* error = nullptr);
    void EndOfRecordset();

private:
    void Fire(RecordEvent event, std::vector<_variant_t> arguments, long& status);

    ConnectionPoints& m_Points;
    IDispatch* const m_Recordset; // which this belongs to
    int m_Depth = 0;
};

// An operation with an event before and one after it. One that is cancelled or fails tells so in the latter, and
// raises.
template <class F>
void WithEvents(RecordEvents& events, RecordEvent before, RecordEvent after, const std::vector<_variant_t>& arguments,
                F&& operation) {
    const bool allowed = events.Will(before, arguments);
    try {
        if (!allowed)
            Raise(Failure::OperationCancelled);
        operation();
    } catch (...) {
        const AutomationError error = CurrentError();
        events.Complete(after, arguments, &error);
        throw;
    }
    events.Complete(after, arguments);
}

} // namespace ormisk::records
