#include "picker/OrmiskSwatch.h"

#include "automation/Value.h"
#include "platform/TextOutput.h"
#include "win/Rects.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr long kMargin = 2;

std::size_t Position(long index) {
    if (index < 0 || index >= kSystemColors)
        RaiseBadPosition();
    return static_cast<std::size_t>(index);
}

std::wstring CustomColorKey(long index) { return L"CustomColor" + std::to_wstring(index); }

} // namespace

OrmiskSwatch::OrmiskSwatch() = default;

OrmiskSwatch::~OrmiskSwatch() { m_Listener = nullptr; }

void OrmiskSwatch::Create(HWND parent, SwatchListener* listener) {
    m_Window.Create(parent, *this, {.takesFocus = true, .visible = false});
    m_txtValue.Create(m_Window.hWnd(), nullptr);
    m_txtValue.PassMouse(); // the whole field is one button
    SendMessageW(m_txtValue.hWnd(), EM_SETREADONLY, TRUE, 0);
    m_txtValue.SetVisible(true);
    m_Listener = listener;
    ShowSettings();
}

void OrmiskSwatch::Move(int left, int top, int width, int height) {
    m_Window.MovePixels({left, top, left + width, top + height});
    if (IsPaletteOpen())
        PlacePalette();
}

bool OrmiskSwatch::IsVisible() const { return (GetWindowLongPtrW(hwnd(), GWL_STYLE) & WS_VISIBLE) != 0; }

void OrmiskSwatch::SetVisible(bool visible) { m_Window.SetVisible(visible); }

void OrmiskSwatch::SetEnabled(bool enabled) {
    m_Enabled = enabled;
    m_txtValue.SetEnabled(enabled);
    m_Window.Invalidate(true);
    if (!enabled)
        m_frmColorPicker.CloseForm();
}

void OrmiskSwatch::InitProperties(const FontDescription& ambientFont) {
    m_Initial.Font = ambientFont;
    m_Settings = m_Initial;
    ShowSettings();
}

void OrmiskSwatch::ReadProperties(NamedValues& store) {
    const std::weak_ptr<char> life = m_Life;
    SwatchSettings settings = m_Settings;
    ReadSettings(store, settings);
    for (long i = 0; i < kCustomColors && !life.expired(); ++i) {
        Color color = kUnsetCustomColor;
        const auto unset = static_cast<long>(color);
        IgnoringFailures([&] { return ReadColor(store.Read(CustomColorKey(i).c_str(), unset), color); });
        if (!life.expired())
            m_frmColorPicker.SetCustomColor(i, color);
    }
    if (life.expired())
        return;
    m_Settings = settings;
    ShowSettings();
}

// The store may be a door: what it is given is a copy.
void OrmiskSwatch::WriteProperties(NamedValues& store) const {
    const SwatchSettings settings = m_Settings;
    const SwatchSettings initial = m_Initial;
    CustomColors colors;
    for (long i = 0; i < kCustomColors; ++i)
        colors[static_cast<std::size_t>(i)] = GetCustomColor(i);
    WriteSettings(store, settings, initial);
    for (long i = 0; i < kCustomColors; ++i)
        store.Write(CustomColorKey(i).c_str(), static_cast<long>(colors[static_cast<std::size_t>(i)]),
                    static_cast<long>(kUnsetCustomColor));
}

// Calls the listener; false when the field is gone afterwards.
template <class Call> bool OrmiskSwatch::Tell(Call&& call) {
    const std::weak_ptr<char> life = m_Life;
    if (m_Listener)
        IgnoringFailures([&] { call(*m_Listener); });
    return !life.expired();
}

void OrmiskSwatch::TellChanged(const std::wstring& key) {
    Tell([&](SwatchListener& to) { to.OnSettingChanged(key); });
}

void OrmiskSwatch::SettingChanged(SwatchField field) {
    ShowSettings();
    for (const SwatchSetting& setting : SwatchSettingTable())
        if (setting.field == field)
            return TellChanged(setting.notice);
}

// The listener may set another colour, or end the field, at each step.
void OrmiskSwatch::SelectedColor(Color value) {
    if (value == m_Settings.SelectedColor)
        return;
    m_Settings.SelectedColor = value;
    ShowSettings();
    const std::weak_ptr<char> life = m_Life;
    ActiveTab(IsSystemColor(value) ? kSystemTab : kPaletteTab);
    if (!life.expired() && Tell([](SwatchListener& to) { to.OnSelectedColorChanged(); }))
        TellChanged(L"SelectedColor");
}

std::wstring OrmiskSwatch::SystemColorName(long index) const { return m_Names[Position(index)]; }

void OrmiskSwatch::SystemColorName(long index, const std::wstring& name) { m_Names[Position(index)] = name; }

void OrmiskSwatch::ResetSystemColorsNames() { m_Names = DefaultSystemColorNames(); }

void OrmiskSwatch::SetCustomColor(long index, Color color) {
    m_frmColorPicker.SetCustomColor(index, color);
    TellChanged(CustomColorKey(index));
}

void OrmiskSwatch::ShowDropDown(bool bShow) {
    if (!bShow)
        return m_frmColorPicker.CloseForm();
    if (!IsVisible() || !m_Enabled)
        return;
    const std::weak_ptr<char> life = m_Life;
    m_frmColorPicker.Load(m_Window.hWnd()); // a window of another frame is closed
    if (life.expired() || !m_Window.IsAlive())
        return;
    m_frmColorPicker.ActiveTab(m_Settings.ActiveTab);
    m_frmColorPicker.UpdateInfo(m_Settings);
    m_frmColorPicker.RecalculateSize();
    PlacePalette();
    m_frmColorPicker.Showform();
}

void OrmiskSwatch::PlacePalette() {
    const Point place =
        PlaceOfPalette(WindowRect(m_Window.hWnd()), m_frmColorPicker.WindowSize(), GetSystemMetrics(SM_CYSCREEN));
    SetWindowPos(m_frmColorPicker.hwnd(), nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void OrmiskSwatch::OnTabChanged() {
    Tell([](SwatchListener& to) { to.OnTabChanged(); });
}

void OrmiskSwatch::OnColorPicked(Color color) {
    const std::weak_ptr<char> life = m_Life;
    SelectedColor(color);
    if (!life.expired())
        Tell([](SwatchListener& to) { to.OnSelectedColorChanged(); });
}

DialogHost* OrmiskSwatch::Dialogs() { return m_Listener ? m_Listener->Dialogs() : nullptr; }

void OrmiskSwatch::OnPaletteOpened() {
    Tell([](SwatchListener& to) { to.OnPaletteOpened(); });
}

void OrmiskSwatch::OnPaletteClosed() {
    ShowButton(false);
    Tell([](SwatchListener& to) { to.OnPaletteClosed(); });
}

void OrmiskSwatch::OnCustomColorChanged(int index, Color) { TellChanged(CustomColorKey(index)); }

bool OrmiskSwatch::OnMessage(Pane&, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC: // of a text that is for reading only
        if (reinterpret_cast<HWND>(lParam) != m_txtValue.hWnd())
            return false;
        result = reinterpret_cast<LRESULT>(m_txtValue.OnCtlColor(reinterpret_cast<HDC>(wParam)));
        return result != 0;
    case WM_SHOWWINDOW:
        if (wParam)
            return false;
        m_frmColorPicker.CloseForm();
        return true;
    case WM_DESTROY: // with the parent
        m_frmColorPicker.Unload();
        return true;
    default:
        return false;
    }
}

void OrmiskSwatch::OnMouse(Pane&, const MouseEvent& event) {
    if (event.stage == MouseStage::Up)
        ShowButton(false);
    if (event.stage == MouseStage::Down)
        Press();
}

void OrmiskSwatch::Press() {
    ShowButton(true);
    ShowDropDown(true);
}

void OrmiskSwatch::OnKeyDown(Pane&, int& keyCode, int shift) {
    constexpr int kAlt = 4;
    if (!Tell([&](SwatchListener& to) { to.OnKeyDown(keyCode, shift); }))
        return;
    const bool opens = (keyCode == VK_DOWN && shift == kAlt) || (keyCode == VK_F4 && shift == 0);
    if (!opens || !m_Enabled)
        return;
    keyCode = 0;
    ShowDropDown(true);
}

void OrmiskSwatch::OnKeyUp(Pane&, int& keyCode, int shift) {
    Tell([&](SwatchListener& to) { to.OnKeyUp(keyCode, shift); });
}

void OrmiskSwatch::OnKeyPress(Pane&, int& keyAscii) {
    Tell([&](SwatchListener& to) { to.OnKeyPress(keyAscii); });
}

void OrmiskSwatch::OnFocusChange(Pane&, bool gained) {
    m_Window.Invalidate(true);
    Tell([&](SwatchListener& to) { gained ? to.OnGotFocus() : to.OnLostFocus(); });
}

void OrmiskSwatch::ShowButton(bool down) {
    m_bButtonDown = down;
    m_Window.Invalidate(ButtonPlace(), false);
}

Rect OrmiskSwatch::ButtonPlace() const {
    const Size client = m_Window.ClientSize();
    return {std::max(client.cx - GetSystemMetrics(SM_CXVSCROLL), 0L), 0, client.cx, client.cy};
}

// Of one line, in the middle between the square and the button.
Rect OrmiskSwatch::TextPlace() {
    const WindowDC dc(m_Window.hWnd());
    if (!dc)
        return {};
    const SelectGuard font(dc.Get(), m_Resources.GetFont(m_Settings.Font, L"CurrentFont"));
    const long textHeight = MeasureText(dc.Get(), L"Ag", false).cy;
    const long height = m_Window.ClientSize().cy;
    const long left = kMargin + std::max(height - 2 * kMargin, 0L) + kMargin;
    const long top = (height - textHeight) / 2;
    return {left, top, std::max(ButtonPlace().left, left), top + textHeight};
}

void OrmiskSwatch::OnResize(Pane&) { Arrange(); }

void OrmiskSwatch::Arrange() {
    if (!m_Window.IsAlive())
        return;
    const Rect text = TextPlace();
    m_txtValue.Move(static_cast<int>(text.left), static_cast<int>(text.top), static_cast<int>(text.Width()),
                    static_cast<int>(text.Height()));
    m_Window.Invalidate(true);
}

void OrmiskSwatch::ShowSettings() {
    if (IsPaletteOpen())
        m_frmColorPicker.UpdateInfo(m_Settings);
    if (!m_Window.IsAlive())
        return;
    m_Window.SetBackColor(m_Settings.BackColor);
    const Pane::Border border = m_Settings.Appearance == 1 ? Pane::Border::Sunken : Pane::Border::Line;
    m_Window.SetBorder(m_Settings.BorderStyle == 1 ? border : Pane::Border::None);
    m_txtValue.SetBackColor(m_Settings.BackColor);
    m_txtValue.SetForeColor(m_Settings.ForeColor);
    m_txtValue.SetFont(m_Settings.Font);
    if (const std::wstring text = ColorText(m_Settings.SelectedColor); text != m_txtValue.Text())
        m_txtValue.SetText(text);
    Arrange();
}

void OrmiskSwatch::OnPaint(Pane&, HDC dc, const Rect&) {
    const long edge = std::max(m_Window.ClientSize().cy - 2 * kMargin, 0L);
    {
        const SelectGuard brush(dc, m_Resources.GetBrush(TranslateColor(m_Settings.SelectedColor), L"BackgroundBrush"));
        const SelectGuard pen(dc, m_Resources.GetPen(TranslateColor(m_Settings.ForeColor), L"ForecolorPen"));
        Rectangle(dc, kMargin, kMargin, kMargin + edge, kMargin + edge);
    }
    if (m_Window.HasFocus()) {
        const Rect text = TextPlace();
        const RECT around{text.left - 1, text.top - 1, text.right - 1, text.bottom + 1};
        DrawFocusRect(dc, &around);
    }
    RECT button = ToRect(ButtonPlace());
    DrawFrameControl(dc, &button, DFC_SCROLL,
                     DFCS_SCROLLDOWN | (m_bButtonDown ? DFCS_PUSHED | DFCS_FLAT : 0U) |
                         (m_Enabled ? 0U : DFCS_INACTIVE));
}

} // namespace ormisk
