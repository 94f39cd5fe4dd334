#include "grid/RecordBinding.h"

#include "grid/Grid.h"
#include "model/ValueKind.h"
#include "model/ValueRules.h"
#include "sources/FieldEditor.h"
#include "win/Meanwhile.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace ormisk {

namespace {

// Moves in handlers of moves that are shown one inside another.
constexpr int kMostMoves = 8;

std::optional<RecordField> FindField(const Recordset& recordset, const std::wstring& name) {
    std::optional<RecordField> field;
    IgnoringFailures([&] { field = recordset.Fields().Find(name); });
    return field;
}

// One that reads as a number would be a position.
bool CanBeKey(const std::wstring& fieldName) {
    const std::wstring_view key = TrimBlanks(fieldName);
    return !key.empty() && !IsNumericText(key);
}

// A field that fails is passed over.
void ForEachField(const Recordset& source, const std::function<bool()>& goesOn,
                  const std::function<void(const RecordField&)>& body) {
    std::optional<RecordFields> fields;
    std::int32_t count = 0;
    IgnoringFailures([&] {
        fields = source.Fields();
        count = fields->Count();
    });
    for (std::int32_t i = 0; i < count && goesOn(); ++i)
        IgnoringFailures([&] { body(fields->At(i)); });
}

} // namespace

bool RecordBinding::IsLoad(unsigned load) const { return m_Grid.IsAlive() && m_Loads == load; }

// A handler may load once more meanwhile; one inside that one is left out, for a handler that always loads would never
// come to its end.
void RecordBinding::LoadRecordset(IDispatch* object, bool autoUpdate) {
    const Recordset given(object);
    const bool open = given.IsOpen();
    if (given == m_Recordset || m_Loading == kMostFills || !m_Grid.IsAlive())
        return;
    const Meanwhile loading(m_Loading, m_Loading + 1);
    const unsigned load = ++m_Loads;
    if (const ComPtr<CProperties> properties = m_Grid.m_CProperties)
        IgnoringFailures([&] { properties->RemoveAll(); }); // a handler of it that fails
    if (!IsLoad(load))
        return;
    // The former recordset may do anything when it is let go.
    const Recordset former = std::exchange(m_Recordset, given);
    m_Connection = nullptr;
    auto connection = std::make_unique<RecordsetConnection>(given, static_cast<RecordsetListener&>(*this));
    if (!IsLoad(load))
        return;
    m_Connection = std::move(connection);
    ShowToolbarIfAutomatic();
    if (open)
        LoadRecordsetFields(autoUpdate, load);
    if (IsLoad(load))
        m_Grid.m_RecordToolbar.RecordsetLoaded(given);
}

void RecordBinding::Detach() {
    const Recordset former = m_Recordset;
    Release();
    if (!former || !m_Grid.IsAlive())
        return;
    m_Grid.m_RecordToolbar.UpdateRecordsetToolbar({});
    ShowToolbarIfAutomatic();
}

void RecordBinding::Release() {
    ++m_Loads;
    const Recordset former = std::exchange(m_Recordset, {});
    m_Connection = nullptr;
}

void RecordBinding::ShowToolbarIfAutomatic() {
    if (m_Grid.m_State.recordsetToolbar != omAutomatic)
        return;
    m_Grid.m_ModelView.RefreshView();
    if (!m_Grid.IsAlive())
        return;
    m_Grid.m_FocusOrder.LeaveHidden();
    m_Grid.m_Panes.LayoutTabContainer();
    m_Grid.m_Panes.m_picTabContainer.Invalidate(true);
}

void RecordBinding::LoadRecordsetFields(bool autoUpdate, unsigned load) {
    m_Grid.m_ModelView.Fill([&] {
        ForEachField(
            Recordset(m_Recordset), [&] { return IsLoad(load); },
            [&](const RecordField& field) { AddRow(field, autoUpdate); });
    });
}

// A value that cannot be read leaves its row empty: there is none on a table without records.
void RecordBinding::AddRow(const RecordField& field, bool autoUpdate) {
    const std::wstring name = field.Name();
    _variant_t value;
    IgnoringFailures([&] { value = field.Value(); });
    NewProperty row{.name = name, .value = &value, .autoUpdate = autoUpdate};
    if (CanBeKey(name))
        row.key = name;
    row.readOnly = !field.IsUpdatable();
    row.editorType = EditorTypeForField(field, row.readOnly);
    const bool suits = IsValueValidForEditor(value, row.editorType);
    if (!suits)
        row.value = nullptr; // it shows all the same
    const ComPtr<CProperties> properties = m_Grid.m_CProperties;
    const ComPtr<CProperty> property = properties ? properties->AddProperty(nullptr, row) : nullptr;
    if (!property)
        return;
    ConfigureFieldRow(field, *property.Get());
    if (!suits)
        ShowField(*property.Get(), field);
}

// One without a key is filed by its name alone.
CProperty* RecordBinding::RowOf(const std::wstring& fieldName) const {
    if (!m_Grid.m_CProperties)
        return nullptr;
    return CanBeKey(fieldName) ? m_Grid.m_CProperties->ItemByKey(fieldName)
                               : m_Grid.m_CProperties->ItemByInternalKey(L"_" + fieldName);
}

// True when the row has another value by now.
bool RecordBinding::ShowField(CProperty& row, const RecordField& field) {
    const ComPtr<CProperty> held(&row);
    const _variant_t value = field.Value();
    if (!row.IsFiled())
        return false;
    const bool updates = row.AutoUpdateSource();
    bool changed = false;
    row.SetAutoUpdateSource(false);
    IgnoringFailures([&] { changed = row.MirrorValue(value); });
    if (!row.AutoUpdateSource()) // else a handler wants it so
        row.SetAutoUpdateSource(updates);
    return changed;
}

// Each change of a row is told to the host, which may go to another record meanwhile: that one shows then.
void RecordBinding::ShowCurrentRecord() {
    const Recordset source = m_Recordset;
    const unsigned load = m_Loads;
    const unsigned move = m_Moves;
    bool open = false;
    IgnoringFailures([&] { open = source && source.IsOpen(); });
    if (!open)
        return;
    m_Grid.m_RecordToolbar.ShowPosition(source);
    const auto show = [&] {
        std::vector<ComPtr<CProperty>> shown; // of fields that are called alike, the first one has the row
        const auto goesOn = [&] { return IsLoad(load) && m_Moves == move; };
        ForEachField(source, goesOn, [&](const RecordField& field) {
            const ComPtr<CProperty> row(RowOf(field.Name()));
            if (row && std::ranges::find(shown, row) == shown.end()) {
                shown.push_back(row);
                ShowField(*row.Get(), field);
            }
        });
    };
    // A handler may want to see each change on the screen.
    if (m_Grid.m_Host.Sinks().HasListeners())
        show();
    else
        m_Grid.m_Panes.InvalidateTogether(show);
}

bool RecordBinding::WriteThrough(CProperty& property) {
    const Recordset source = m_Recordset;
    if (!property.AutoUpdateSource() || !source)
        return true;
    std::optional<RecordField> field;
    const auto show = [&] {
        bool changed = false;
        if (field && m_Grid.IsAlive() && m_Recordset == source)
            IgnoringFailures([&] { changed = ShowField(property, *field); });
        return changed;
    };
    try {
        if (!source.IsOpen() || !source.IsOnRecord() || !source.CanUpdate())
            return true;
        field = FindField(source, property.Name());
        if (field)
            Write(source, *field, property.Value());
    } catch (...) {
        const AutomationError error = CurrentError();
        const bool changed = show();
        m_Grid.ReportTrappedError(error);
        m_Grid.m_Panes.m_picTreeContainer.TakeFocus();
        return !changed;
    }
    return !show();
}

// Whoever edits the record already has the say when it is done. What is refused is taken back, but for that.
void RecordBinding::Write(const Recordset& source, const RecordField& field, const VARIANT& value) {
    std::optional<bool> edited; // not every source tells
    std::optional<_variant_t> former;
    IgnoringFailures([&] { edited = source.IsBeingEdited(); });
    if (edited != false)
        IgnoringFailures([&] { former = field.Value(); });
    try {
        field.SetValue(value);
        if (source.UpdatesAtOnce() && edited != true)
            source.Update();
    } catch (...) {
        if (edited == false)
            IgnoringFailures([&] { source.CancelUpdate(); });
        else if (former)
            IgnoringFailures([&] { field.SetValue(*former); });
        throw;
    }
}

bool RecordBinding::IsPropertyValueValid(CProperty& property) const {
    const Recordset source = m_Recordset;
    if (source && IsNull(property.Value())) {
        const auto field = FindField(source, property.Name());
        bool nullable = false;
        if (field && IgnoringFailures([&] { nullable = field->IsNullable(); }))
            return nullable;
    }
    return IsValueValidForEditor(property.Value(), property.EditorKind());
}

void RecordBinding::WillMove() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Session.CommitForMove();
}

// A handler of what shows may move on, which shows within. One that goes through the whole table that way would run out
// of stack: from a depth on, the move is left to whoever is showing.
void RecordBinding::MoveComplete(MoveReason reason) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    ++m_Moves;
    m_Reason = reason;
    if (m_Showing == kMostMoves)
        return;
    const Meanwhile showing(m_Showing, m_Showing + 1);
    unsigned shown = 0;
    do {
        shown = m_Moves;
        ShowMove(m_Reason);
    } while (m_Showing == kMostMoves && m_Moves != shown);
}

void RecordBinding::ShowMove(MoveReason reason) {
    const Recordset source = m_Recordset;
    const unsigned load = m_Loads;
    const unsigned move = m_Moves;
    const auto goesOn = [&] { return IsLoad(load) && m_Moves == move; };
    if (goesOn())
        ShowCurrentRecord();
    if (goesOn())
        m_Grid.m_Session.ShowMoved();
    if (goesOn())
        m_Grid.m_RecordToolbar.MoveComplete(source, reason);
}

template <class F> void RecordBinding::Moving(MoveReason reason, F&& move) {
    const Recordset source = m_Recordset;
    if (!source)
        return;
    WillMove();
    if (m_Recordset != source)
        return;
    const unsigned before = m_Moves;
    move(source);
    if (m_Moves == before && m_Recordset == source)
        MoveComplete(reason);
}

void RecordBinding::Move(void (Recordset::*move)() const, MoveReason reason) {
    Moving(reason, [&](const Recordset& source) { (source.*move)(); });
}

void RecordBinding::MoveTo(std::int32_t position) {
    Moving(MoveReason{}, [&](const Recordset& source) { source.SetAbsolutePosition(position); });
}

void RecordBinding::RecordsetChangeComplete() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const Recordset source = m_Recordset;
    if (m_Grid.IsAlive())
        m_Grid.m_RecordToolbar.RecordsetChangeComplete(source);
}

} // namespace ormisk
