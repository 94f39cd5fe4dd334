#pragma once

#include "automation/ByName.h"

#include <cstdint>
#include <memory>

namespace ormisk {

// A field of a recordset. Its members are called by name and raise what the field raises.
class RecordField {
public:
    explicit RecordField(const _variant_t& field);

    std::wstring Name() const;
    _variant_t Value() const; // an object stays one
    void SetValue(const VARIANT& value) const;
    std::int32_t Type() const; // a number of DataTypeEnum
    std::int64_t DefinedSize() const;
    bool IsUpdatable() const;
    bool IsNullable() const;

private:
    ComPtr<IDispatch> m_Field;
};

// The fields of a recordset in their order, as they are now.
class RecordFields {
public:
    explicit RecordFields(const _variant_t& fields);
    std::int32_t Count() const;
    RecordField At(std::int32_t index) const; // from 0
    RecordField Find(const std::wstring& name) const;

private:
    RecordField Item(_variant_t index) const;

    ComPtr<IDispatch> m_Fields;
};

// A recordset of the platform's data library, or any object that keeps its published contract. Its members are called
// by name and raise what the recordset raises. Holds the recordset.
class Recordset {
public:
    Recordset() = default;
    // Raises InvalidRecordset for an object that does not answer for the contract.
    explicit Recordset(IDispatch* object);
    explicit operator bool() const { return m_Object != nullptr; }
    IDispatch* Object() const { return m_Object.Get(); }
    bool operator==(const Recordset& other) const;

    bool IsOpen() const;
    bool IsBof() const;
    bool IsEof() const;
    bool IsOnRecord() const { return !IsBof() && !IsEof(); }
    std::int64_t RecordCount() const;      // negative: not known
    std::int64_t AbsolutePosition() const; // from 1; less when it is not known
    void SetAbsolutePosition(std::int32_t position) const;
    bool IsForwardOnly() const;
    bool UpdatesAtOnce() const; // optimistic lock: each edit wants an Update of its own
    bool IsBeingEdited() const;
    bool CanUpdate() const;
    bool CanMoveBack() const;

    void MoveFirst() const;
    void MovePrevious() const;
    void MoveNext() const;
    void MoveLast() const;
    void Update() const;
    void CancelUpdate() const;

    RecordFields Fields() const;

private:
    _variant_t Get(const wchar_t* property) const;
    bool Is(const wchar_t* property) const;
    void Call(const wchar_t* method) const;
    bool Supports(std::int32_t options) const;

    ComPtr<IDispatch> m_Object;
};

// Why a recordset moved, as far as it counts: numbers of EventReasonEnum.
enum class MoveReason : std::int32_t { First = 12, Next = 13, Previous = 14, Last = 15 };

// Hears of a recordset's moves. What it raises ends here.
class RecordsetListener {
public:
    virtual void WillMove() = 0;
    virtual void MoveComplete(MoveReason reason) = 0; // any number; not of a move that failed
    virtual void RecordsetChangeComplete() = 0;

protected:
    ~RecordsetListener() = default;
};

// Connects a listener to the events of a recordset, if it has any, for its own life.
class RecordsetConnection {
public:
    RecordsetConnection(const Recordset& recordset, RecordsetListener& listener);
    RecordsetConnection(const RecordsetConnection&) = delete;
    RecordsetConnection& operator=(const RecordsetConnection&) = delete;
    ~RecordsetConnection();

private:
    class Sink;

    ComPtr<Sink> m_Sink;
    ComPtr<IConnectionPoint> m_Point;
    DWORD m_Cookie = 0;
};

} // namespace ormisk
