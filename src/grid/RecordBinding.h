#pragma once

#include "model/CProperty.h"
#include "sources/Recordset.h"

namespace ormisk {

class Grid;

// Shows the current record of a recordset, one row a field, and writes what is edited into it. Row and field know each
// other by the field's name only.
class RecordBinding final : private RecordsetListener {
public:
    explicit RecordBinding(Grid& grid) : m_Grid(grid) {}

    bool IsLoaded() const { return static_cast<bool>(m_Recordset); }
    const Recordset& Source() const { return m_Recordset; }

    // Puts rows of its fields in the place of all others. The recordset that is loaded already stays as it is. Raises
    // InvalidRecordset, and what a recordset raises that does not tell its state; nothing has changed then. Without
    // windows nothing is loaded.
    void LoadRecordset(IDispatch* object, bool autoUpdate);
    // Lets the recordset go; its rows stay. An automatic toolbar goes along.
    void Detach();
    // The same at the end of the control, whose windows are left alone.
    void Release();

    // Moves as a recordset does, and raises what it raises. An open edit is committed before; the rows show the new
    // record even if the recordset tells nobody of its moves.
    void MoveFirst() { Move(&Recordset::MoveFirst, MoveReason::First); }
    void MovePrevious() { Move(&Recordset::MovePrevious, MoveReason::Previous); }
    void MoveNext() { Move(&Recordset::MoveNext, MoveReason::Next); }
    void MoveLast() { Move(&Recordset::MoveLast, MoveReason::Last); }
    void MoveTo(std::int32_t position);

    // Values of the current record into the rows, none of which writes them back. What cannot be read stays.
    void ShowCurrentRecord();
    // A row has a new value: it goes to the field of its name, and the row shows what the field made of it. A recordset
    // that refuses it keeps nothing of it, and is reported. False when the row took another value meanwhile, which has
    // been told.
    bool WriteThrough(CProperty& property);
    // Whether the value is one for the row's editor. Of Null a field knows it.
    bool IsPropertyValueValid(CProperty& property) const;

private:
    void WillMove() override;
    void MoveComplete(MoveReason reason) override;
    void RecordsetChangeComplete() override;

    template <class F> void Moving(MoveReason reason, F&& move);
    void Move(void (Recordset::*move)() const, MoveReason reason);
    bool IsLoad(unsigned load) const;
    void ShowMove(MoveReason reason);
    void LoadRecordsetFields(bool autoUpdate, unsigned load);
    void AddRow(const RecordField& field, bool autoUpdate);
    CProperty* RowOf(const std::wstring& fieldName) const;
    bool ShowField(CProperty& row, const RecordField& field);
    static void Write(const Recordset& source, const RecordField& field, const VARIANT& value);
    void ShowToolbarIfAutomatic();

    Grid& m_Grid;
    Recordset m_Recordset;
    std::unique_ptr<RecordsetConnection> m_Connection;
    // Loads and moves so far: a handler may have begun another one.
    unsigned m_Loads = 0;
    unsigned m_Moves = 0;
    // How many are going on, one inside another.
    int m_Loading = 0;
    int m_Showing = 0;
    MoveReason m_Reason{}; // of the last move
};

} // namespace ormisk
