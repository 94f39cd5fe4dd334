// The stored settings of the control: the table of its properties drives both ways.

#include "grid/OrmiskGrid.h"
#include "platform/StoredSetting.h"
#include "sources/DebugOutput.h"

namespace ormisk {

namespace {

// A key that fails leaves a line, of one text for both ways, and what was there.
template <class Statement> void Noted(NamedValues& store, const PropertyEntry& entry, Statement&& statement) {
    try {
        statement();
    } catch (...) {
        const AutomationError error = CurrentError();
        WriteDebugLine(L"ERR_WRITEPROP : " + error.description + L" : " + std::to_wstring(error.number));
        store.Refused(entry.name, error);
    }
}

bool Is(const PropertyEntry& entry, PropertyEntry::Field field) { return entry.field == field; }

// As the public property has it: lengths in units of the scale, of which the store says nothing.
_variant_t StoredOf(const PropertyEntry& entry, const GridState& state, const Pane& scale) {
    if (Is(entry, &GridState::indentation))
        return ToStored(scale.PixelsToUnitsX(state.indentation));
    return std::visit([](const auto& value) { return ToStored(value); }, entry.Read(state));
}

_variant_t DefaultOf(const PropertyEntry& entry, const Pane& scale) {
    const GridState defaults;
    if (Is(entry, &GridState::inspectionDepth)) // of another type than its value
        return static_cast<short>(defaults.inspectionDepth);
    return StoredOf(entry, defaults, scale);
}

} // namespace

void OrmiskGrid::OnLoad(NamedValues& store) {
    AdoptScaleUnits();
    for (const PropertyEntry& entry : kProperties)
        if (entry.stored && m_Grid.IsAlive())
            Noted(store, entry, [&] { LoadSetting(store, entry); });
    if (!m_Grid.IsAlive())
        return;
    m_Grid.m_Panes.ControlResized();
    m_Grid.m_Panes.Refresh();
}

void OrmiskGrid::LoadSetting(NamedValues& store, const PropertyEntry& entry) {
    if (Is(entry, &GridState::font)) {
        LoadFont(store, entry.name);
        return;
    }
    const Pane& scale = m_Grid.m_Panes.m_Control;
    const _variant_t stored = store.Read(entry.name, DefaultOf(entry, scale));
    PropertyValue value = entry.Read(m_Grid.m_State);
    std::visit([&](auto& setting) { FromStored(stored, setting); }, value);
    if (Is(entry, &GridState::indentation))
        value = scale.UnitsToPixelsX(std::get<float>(value));
    m_Grid.m_Properties.Put(entry, std::move(value));
}

// Without a stored one the font stays that of the container.
void OrmiskGrid::LoadFont(NamedValues& store, const wchar_t* key) {
    const ComPtr<IFontDisp> ambient = AmbientFont();
    const _variant_t stored = store.Read(key, static_cast<IDispatch*>(ambient.Get()));
    FontDescription font = m_Grid.m_State.font;
    FromStored(stored, font);
    IUnknown* const given = ObjectOf(stored);
    if (given)
        AdoptFont(given, !SameObject(given, ambient.Get()));
}

void OrmiskGrid::OnSave(NamedValues& store) {
    for (const PropertyEntry& entry : kProperties)
        if (entry.stored)
            Noted(store, entry, [&] {
                const Pane& scale = m_Grid.m_Panes.m_Control;
                store.Write(entry.name, StoredOf(entry, m_Grid.m_State, scale), DefaultOf(entry, scale));
            });
}

} // namespace ormisk
