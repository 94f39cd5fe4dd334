#pragma once

#include "editors/DateRules.h"
#include "editors/WindowEditor.h"
#include "platform/DatePicker.h"

namespace ormisk {

// The editor of date rows, on the system's date picker: its value is a day without a time, or Empty. Commit raises
// 0x80040002 with the reason when the day is out of its limits; ENTER on such a day is ignored.
class CDateEditor final : public WindowEditor {
public:
    CDateEditor() : WindowEditor(m_Picker) {}
    void Activate(bool dropDown) override; // opens the calendar in any case
    void Changed() override;
    HWND DropDownWindow() const override { return m_Picker.OpenCalendar(); }
    void CloseUp() override { m_Picker.CloseUp(); }
    bool IsTouched() const override { return Picks() != m_LoadedPicks; }

private:
    void Create(HWND parent) override { m_Picker.Create(parent, this, false); }
    void DestroyWindows() override { m_Picker.Destroy(); }
    void KeyDown(int& key, int shift) override;
    void ReadRow(_CProperty* property) override;
    _variant_t Value() const override;
    void SetValue(const VARIANT& value) override;
    void CommitEdit() override;
    void Place(int left, int top, int width, int height) override { m_Picker.Move(left, top, width, height); }

    DatePicker m_Picker;
    DateLimits m_Limits;
    std::optional<DATE> m_InPlace; // what the picker shows in place of a value that it cannot show
    unsigned m_LoadedPicks = 0;
};

} // namespace ormisk
