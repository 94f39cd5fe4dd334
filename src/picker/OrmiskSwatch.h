#pragma once

#include "picker/frmColorPicker.h"
#include "platform/Scale.h"
#include "platform/TextBox.h"

#include <memory>
#include <string>
#include <type_traits>

namespace ormisk {

// Hears what happens in a colour field, and its keys, before the field itself. A handler may destroy the field. A
// failure in a handler ends there.
class SwatchListener : public ChildWindowListener {
public:
    virtual void OnTabChanged() {}
    // Once for a colour set by code; twice for a new one that the user picks, and once for one that was picked before.
    virtual void OnSelectedColorChanged() {}
    virtual void OnPaletteOpened() {}
    virtual void OnPaletteClosed() {}
    // Who stands behind the system's colour dialog.
    virtual DialogHost* Dialogs() { return nullptr; }
    // A setting that is stored is another now; told by the name under which hosts hear of it.
    virtual void OnSettingChanged(const std::wstring& /*key*/) {}

    void OnKeyDown(int& /*keyCode*/, int /*shift*/) override {}
    void OnKeyPress(int& /*keyAscii*/) override {}
    void OnKeyUp(int& /*keyCode*/, int /*shift*/) override {}
    void OnGotFocus() override {}

protected:
    ~SwatchListener() = default;
};

// A field of one line with a colour: a square of it, its value as text, and a button that drops the palette down. The
// window is owned. Without it (not created, or destroyed with its parent) the settings stay, and nothing shows.
class OrmiskSwatch final : PaneListener, PaletteOwner {
public:
    OrmiskSwatch();
    OrmiskSwatch(const OrmiskSwatch&) = delete;
    OrmiskSwatch& operator=(const OrmiskSwatch&) = delete;
    ~OrmiskSwatch(); // the listener hears nothing of it

    // Makes the window, hidden. The listener is borrowed, and may be null. Raises the system's error.
    void Create(HWND parent, SwatchListener* listener);
    HWND hwnd() const { return m_Window.hWnd(); }
    static constexpr ScaleMode Scale() { return ScaleMode::Pixel; }
    void Move(int left, int top, int width, int height);
    bool IsVisible() const;        // its own flag, whatever its parent's
    void SetVisible(bool visible); // hidden, it has no palette
    void SetFocus() { m_Window.TakeFocus(); }
    void SetEnabled(bool enabled); // disabled, it has no palette and takes no keys

    // A new field has the settings of its kind and the font that its surroundings have.
    void InitProperties(const FontDescription& ambientFont);
    void ReadProperties(NamedValues& store);
    void WriteProperties(NamedValues& store) const;

    // Settings. Setting one to the value that it has does nothing, and tells nobody.
    long Appearance() const { return m_Settings.Appearance; } // 1 gives the border depth
    void Appearance(long value) { Change(&SwatchSettings::Appearance, value); }
    long ActiveTab() const { return m_Settings.ActiveTab; } // 0 palette, 1 system
    void ActiveTab(long value) { Change(&SwatchSettings::ActiveTab, value); }
    Color BackColor() const { return m_Settings.BackColor; }
    void BackColor(Color value) { Change(&SwatchSettings::BackColor, value); }
    long BorderStyle() const { return m_Settings.BorderStyle; } // 0 none, 1 a line
    void BorderStyle(long value) { Change(&SwatchSettings::BorderStyle, value); }
    const FontDescription& Font() const { return m_Settings.Font; }
    void Font(const FontDescription& value) { Change(&SwatchSettings::Font, value); }
    Color ForeColor() const { return m_Settings.ForeColor; }
    void ForeColor(Color value) { Change(&SwatchSettings::ForeColor, value); }
    Color HighlightColor() const { return m_Settings.HighlightColor; }
    void HighlightColor(Color value) { Change(&SwatchSettings::HighlightColor, value); }
    Color HighlightForeColor() const { return m_Settings.HighlightForeColor; }
    void HighlightForeColor(Color value) { Change(&SwatchSettings::HighlightForeColor, value); }
    Color PaletteBackColor() const { return m_Settings.PaletteBackColor; }
    void PaletteBackColor(Color value) { Change(&SwatchSettings::PaletteBackColor, value); }
    const std::wstring& PaletteTabCaption() const { return m_Settings.PaletteTabCaption; }
    void PaletteTabCaption(const std::wstring& value) { Change(&SwatchSettings::PaletteTabCaption, value); }
    const std::wstring& SystemTabCaption() const { return m_Settings.SystemTabCaption; }
    void SystemTabCaption(const std::wstring& value) { Change(&SwatchSettings::SystemTabCaption, value); }
    Color SystemBackColor() const { return m_Settings.SystemBackColor; }
    void SystemBackColor(Color value) { Change(&SwatchSettings::SystemBackColor, value); }
    Color SelectedColor() const { return m_Settings.SelectedColor; } // of a system colour the reference
    void SelectedColor(Color value);
    Color ToolTipBackColor() const { return m_Settings.ToolTipBackColor; }
    void ToolTipBackColor(Color value) { Change(&SwatchSettings::ToolTipBackColor, value); }
    Color ToolTipForeColor() const { return m_Settings.ToolTipForeColor; }
    void ToolTipForeColor(Color value) { Change(&SwatchSettings::ToolTipForeColor, value); }
    bool Unicode() const { return m_Settings.Unicode; } // names and captions are byte-expanded
    void Unicode(bool value) { Change(&SwatchSettings::Unicode, value); }

    // The names of the system colours, from 0; a wrong position raises. Set ones show when the palette paints.
    std::wstring SystemColorName(long index) const;
    void SystemColorName(long index, const std::wstring& name);
    void ResetSystemColorsNames();
    // The custom colours of the palette, from 0; a wrong position raises.
    Color GetCustomColor(long index) const { return m_frmColorPicker.GetCustomColor(index); }
    void SetCustomColor(long index, Color color);

    void ShowDropDown(bool bShow);
    bool IsPaletteOpen() const { return m_frmColorPicker.IsShown(); }
    HWND PaletteWindow() const { return m_frmColorPicker.hwnd(); } // null before the first time

private:
    bool OnMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnPaint(Pane& pane, HDC dc, const Rect& clip) override;
    void OnMouse(Pane& pane, const MouseEvent& event) override;
    void OnDblClick(Pane& /*pane*/) override { Press(); }
    void OnCaptureLost(Pane& /*pane*/) override { ShowButton(false); }
    void OnKeyDown(Pane& pane, int& keyCode, int shift) override;
    void OnKeyUp(Pane& pane, int& keyCode, int shift) override;
    void OnKeyPress(Pane& pane, int& keyAscii) override;
    void OnFocusChange(Pane& pane, bool gained) override;
    void OnResize(Pane& pane) override;

    const SystemColorNames& Names() const override { return m_Names; }
    void OnTabChanged() override;
    void OnColorPicked(Color color) override;
    void OnPaletteOpened() override;
    DialogHost* Dialogs() override;
    void OnPaletteClosed() override;
    void OnCustomColorChanged(int index, Color color) override;

    template <class T> void Change(T SwatchSettings::* field, const std::type_identity_t<T>& value) {
        if (m_Settings.*field == value)
            return;
        m_Settings.*field = value;
        SettingChanged(field);
    }
    void SettingChanged(SwatchField field);
    void TellChanged(const std::wstring& key);
    template <class Call> bool Tell(Call&& call);
    void ShowSettings();
    void Arrange();
    void Press();
    void PlacePalette();
    void ShowButton(bool down);
    Rect ButtonPlace() const;
    Rect TextPlace();

    SwatchListener* m_Listener = nullptr;
    std::shared_ptr<char> m_Life = std::make_shared<char>(); // an event that ends the field is seen by a weak reference
    SwatchSettings m_Settings;
    SwatchSettings m_Initial; // as a new field has them
    SystemColorNames m_Names = DefaultSystemColorNames();
    bool m_bButtonDown = false;
    bool m_Enabled = true;
    CResourceMgr m_Resources;
    Pane m_Window;
    TextBox m_txtValue;
    frmColorPicker m_frmColorPicker{*this};
};

} // namespace ormisk
