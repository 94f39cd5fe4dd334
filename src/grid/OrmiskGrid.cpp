#include "grid/OrmiskGrid.h"

#include "automation/Give.h"
#include "grid/Version.h"
#include "platform/About.h"
#include "platform/VersionText.h"
#include "win/Gdi.h"
#include "win/Keys.h"

#include <olectl.h>

namespace ormisk {

namespace {

constexpr wchar_t kScaleUnits[] = L"ScaleUnits";

} // namespace

OrmiskGrid::OrmiskGrid() { m_Grid.m_State.font = m_Font.Description(); }

void OrmiskGrid::FinalRelease() {
    ControlBase::FinalRelease();
    m_Grid.Release();
}

void OrmiskGrid::OnFirstSited(HWND parking) {
    m_Grid.CreateWindows(parking);
    // Of a host that says nothing about stored state, this is all there is to learn.
    OnAmbientChange(DISPID_UNKNOWN);
}

void OrmiskGrid::OnInitNew() {
    AdoptScaleUnits();
    if (const ComPtr<IFontDisp> font = m_OwnFont ? nullptr : AmbientFont())
        AdoptFont(font.Get(), false);
    m_Grid.m_Properties.RunFirstDefaults();
}

// The control's own object goes first: who hears of the change reads the new font.
void OrmiskGrid::AdoptFont(IUnknown* font, bool own) {
    m_Font.Take(DescribeFont(font));
    m_OwnFont = m_OwnFont || own;
    m_Grid.m_Properties.Put<&GridState::font>(m_Font.Description());
}

void OrmiskGrid::AdoptScaleUnits() {
    const auto units = Ambient(kScaleUnits);
    std::wstring text;
    if (units)
        IgnoringFailures([&] { text = TextOf(*units); });
    m_Grid.m_Panes.SetPaneScaleMode(text);
}

void OrmiskGrid::OnAmbientChange(DISPID id) {
    if (!m_Grid.IsAlive())
        return;
    if (id != DISPID_AMBIENT_FONT)
        AdoptScaleUnits(); // it has no number that all hosts share
    if ((id == DISPID_AMBIENT_FONT || id == DISPID_UNKNOWN) && !m_OwnFont) {
        if (const ComPtr<IFontDisp> font = AmbientFont())
            AdoptFont(font.Get(), false);
    }
}

void OrmiskGrid::FocusLeft() {
    const HWND window = m_Grid.m_Panes.m_Control.hWnd();
    const HWND focus = GetFocus();
    if (focus != window && !IsChild(window, focus))
        FocusLost();
}

void OrmiskGrid::OnDraw(HDC dc, const RECT& pixels) {
    const SavedDC saved(dc);
    OffsetWindowOrgEx(dc, -pixels.left, -pixels.top, nullptr);
    m_Grid.m_Panes.Draw(dc);
}

// The grid uses what moves the selection, edits and confirms; the rest goes by the host's rules.
HRESULT OrmiskGrid::OnTranslateKey(MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN)
        return S_FALSE;
    const bool alt = message.message == WM_SYSKEYDOWN;
    const int key = static_cast<int>(message.wParam);
    switch (key) {
    case VK_TAB:
        if (alt || GetKeyState(VK_CONTROL) < 0)
            return S_FALSE;
        return m_Grid.IsAlive() && m_Grid.m_FocusOrder.Move(GetKeyState(VK_SHIFT) < 0) ? S_OK : S_FALSE;
    case VK_RETURN:
    case VK_ESCAPE:
        // Elsewhere they are for the default and cancel buttons of the host.
        if (alt || !m_Grid.m_FocusOrder.Uses(key))
            return S_FALSE;
        break;
    default:
        if (!IsMovingKey(key) || (alt && key != VK_UP && key != VK_DOWN))
            return S_FALSE;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return S_OK;
}

void OrmiskGrid::OnTabbedInto(bool backward) {
    if (m_Grid.IsAlive())
        m_Grid.m_FocusOrder.Enter(backward);
}

void OrmiskGrid::OnFontEdited(const FontDescription&) {
    const ComPtr<IUnknown> self(Outer());
    m_OwnFont = true;
    m_Grid.m_Properties.Put<&GridState::font>(m_Font.Description());
}

STDMETHODIMP OrmiskGrid::get_Font(IFontDisp** value) {
    return Run([&] { Give(value, ComPtr<IFontDisp>(m_Font.Object())); });
}

STDMETHODIMP OrmiskGrid::putref_Font(IFontDisp* value) {
    return Run([&] {
        if (value)
            AdoptFont(value, true);
    });
}

STDMETHODIMP OrmiskGrid::get_hwnd(long* value) {
    return Run([&] { Give(value, HandleToLong(Window())); });
}

STDMETHODIMP OrmiskGrid::get_Indentation(float* value) {
    return Run([&] { Give(value, m_Grid.m_Panes.m_Control.PixelsToUnitsX(m_Grid.m_State.indentation)); });
}

STDMETHODIMP OrmiskGrid::put_Indentation(float value) {
    return Run(
        [&] { m_Grid.m_Properties.Put<&GridState::indentation>(m_Grid.m_Panes.m_Control.UnitsToPixelsX(value)); });
}

STDMETHODIMP OrmiskGrid::LoadObjectProperties(IDispatch* object, VARIANT_BOOL clear, VARIANT_BOOL autoUpdate,
                                              VARIANT_BOOL* result) {
    return Run([&] {
        CheckPointer(result);
        *result = VARIANT_FALSE;
        const bool done =
            m_Grid.m_ObjectLoader.LoadObjectProperties(object, clear != VARIANT_FALSE, autoUpdate != VARIANT_FALSE);
        *result = done ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

// Hosts know no other answer than False.
STDMETHODIMP OrmiskGrid::LoadRecordset(IDispatch* recordset, VARIANT_BOOL autoUpdate, VARIANT_BOOL* result) {
    return Run([&] {
        if (result)
            *result = VARIANT_FALSE;
        m_Grid.m_Records.LoadRecordset(recordset, autoUpdate != VARIANT_FALSE);
    });
}

STDMETHODIMP OrmiskGrid::get_Recordset(IDispatch** value) {
    return Run([&] { Give(value, ComPtr<IDispatch>(m_Grid.m_Records.Source().Object())); });
}

STDMETHODIMP OrmiskGrid::get_Picture(IPictureDisp** value) {
    return Run([&] { Give(value, m_Grid.m_State.picture); });
}

STDMETHODIMP OrmiskGrid::putref_Picture(IPictureDisp* value) {
    return Run([&] { m_Grid.m_Properties.Put<&GridState::picture>(ComPtr<IPictureDisp>(value)); });
}

STDMETHODIMP OrmiskGrid::get_Properties(_CProperties** value) {
    return Run([&] { Give(value, m_Grid.m_CProperties); });
}

STDMETHODIMP OrmiskGrid::Refresh() {
    return Run([&] { m_Grid.m_Panes.Refresh(); });
}

STDMETHODIMP OrmiskGrid::RegisterEditor(BSTR key, _CEditor* editor, VARIANT_BOOL* result) {
    return Run([&] {
        if (result)
            *result = VARIANT_FALSE; // hosts know no other answer
        m_Grid.m_Session.m_Editors.RegisterEditor(FromBstr(key), editor, m_Grid.m_Panes.TreeWnd());
    });
}

STDMETHODIMP OrmiskGrid::UnRegisterEditor(BSTR key) {
    return Run([&] {
        IgnoringFailures([&] { m_Grid.m_Session.CloseEditor(false); });
        m_Grid.m_Session.m_Editors.UnRegisterEditor(FromBstr(key));
    });
}

STDMETHODIMP OrmiskGrid::get_SelectedProperty(_CProperty** value) {
    return Run([&] { Give(value, ComPtr<CProperty>(m_Grid.m_Selection.SelectedProperty())); });
}

STDMETHODIMP OrmiskGrid::putref_SelectedProperty(_CProperty* value) {
    return Run([&] { m_Grid.m_Selection.SelectProperty(value); });
}

STDMETHODIMP OrmiskGrid::StartPropertyEdit(_CProperty* property) {
    return Run([&] { m_Grid.m_Selection.StartPropertyEdit(property); });
}

STDMETHODIMP OrmiskGrid::ShowAbout() {
    return Run([&] {
        const ModalScope modal(m_Grid.m_FieldInput);
        ShowAboutWindow(Window(), kLibraryTitle, VersionText(kVersionMajor, kVersionMinor, kVersionRevision));
    });
}

STDMETHODIMP OrmiskGrid::get_Version(BSTR* value) {
    return Run([&] { Give(value, VersionText(kVersionMajor, kVersionMinor, kVersionRevision)); });
}

STDMETHODIMP OrmiskGrid::SetEditorParam(omEditorType editorType, BSTR name, BSTR value) {
    return Run([&] { m_Grid.m_EditorParams.Set(FromBstr(name), FromBstr(value), editorType); });
}

STDMETHODIMP OrmiskGrid::GetEditorParam(omEditorType editorType, BSTR name, BSTR* value) {
    return Run([&] { Give(value, m_Grid.m_EditorParams.Get(FromBstr(name), editorType)); });
}

STDMETHODIMP OrmiskGrid::RemoveEditorParam(omEditorType editorType, BSTR name) {
    return Run([&] { m_Grid.m_EditorParams.Remove(FromBstr(name), editorType); });
}

STDMETHODIMP OrmiskGrid::get_ColumnDividerPosition(float* value) {
    return Run([&] { Give(value, m_Grid.m_Panes.ColumnDividerPosition()); });
}

STDMETHODIMP OrmiskGrid::put_ColumnDividerPosition(float value) {
    return Run([&] { m_Grid.m_Panes.SetColumnDivider(value); });
}

STDMETHODIMP OrmiskGrid::get_DescriptionPaneHeight(float* value) {
    return Run([&] { Give(value, m_Grid.m_Panes.DescriptionPaneHeight()); });
}

STDMETHODIMP OrmiskGrid::put_DescriptionPaneHeight(float value) {
    return Run([&] { m_Grid.m_Panes.SetDescriptionPaneHeight(value); });
}

STDMETHODIMP OrmiskGrid::ExpandCategory(BSTR path, VARIANT_BOOL expand) {
    return Run([&] { m_Grid.m_ModelView.ExpandCategory(FromBstr(path), expand != VARIANT_FALSE); });
}

} // namespace ormisk
