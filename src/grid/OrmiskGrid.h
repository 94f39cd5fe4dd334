#pragma once

#include "automation/ControlBase.h"
#include "grid/ControlFont.h"
#include "grid/Grid.h"

namespace ormisk {

// The property grid control as hosts see it. It hands each call to the room that knows of it.
class OrmiskGrid final : public ControlBase<_OrmiskGrid, ::OrmiskGrid, __OrmiskGrid>,
                         private GridHost,
                         private ControlFontListener {
public:
    OrmiskGrid();

    STDMETHODIMP get_ActiveView(omActiveView* value) override;
    STDMETHODIMP put_ActiveView(omActiveView value) override;
    STDMETHODIMP get_AlphabeticTabCaption(BSTR* value) override;
    STDMETHODIMP put_AlphabeticTabCaption(BSTR value) override;
    STDMETHODIMP get_Appearance(omAppearance* value) override;
    STDMETHODIMP put_Appearance(omAppearance value) override;
    STDMETHODIMP get_BackColor(OLE_COLOR* value) override;
    STDMETHODIMP put_BackColor(OLE_COLOR value) override;
    STDMETHODIMP get_BorderStyle(omBorderStyle* value) override;
    STDMETHODIMP put_BorderStyle(omBorderStyle value) override;
    STDMETHODIMP get_CategorizedTabCaption(BSTR* value) override;
    STDMETHODIMP put_CategorizedTabCaption(BSTR value) override;
    STDMETHODIMP get_CategoryAppearance(omAppearance* value) override;
    STDMETHODIMP put_CategoryAppearance(omAppearance value) override;
    STDMETHODIMP get_CategoryBackColor(OLE_COLOR* value) override;
    STDMETHODIMP put_CategoryBackColor(OLE_COLOR value) override;
    STDMETHODIMP get_CategoryBold(VARIANT_BOOL* value) override;
    STDMETHODIMP put_CategoryBold(VARIANT_BOOL value) override;
    STDMETHODIMP get_CategoryForeColor(OLE_COLOR* value) override;
    STDMETHODIMP put_CategoryForeColor(OLE_COLOR value) override;
    STDMETHODIMP get_CategorySeparator(BSTR* value) override;
    STDMETHODIMP put_CategorySeparator(BSTR value) override;
    STDMETHODIMP get_CustomSort(VARIANT_BOOL* value) override;
    STDMETHODIMP put_CustomSort(VARIANT_BOOL value) override;
    STDMETHODIMP get_DefaultCategory(BSTR* value) override;
    STDMETHODIMP put_DefaultCategory(BSTR value) override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_Font(IFontDisp** value) override;
    STDMETHODIMP putref_Font(IFontDisp* value) override;
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) override;
    STDMETHODIMP put_ForeColor(OLE_COLOR value) override;
    STDMETHODIMP get_Grid(omGrid* value) override;
    STDMETHODIMP put_Grid(omGrid value) override;
    STDMETHODIMP get_Headers(omHeaders* value) override;
    STDMETHODIMP put_Headers(omHeaders value) override;
    STDMETHODIMP get_HighlightBackColor(OLE_COLOR* value) override;
    STDMETHODIMP put_HighlightBackColor(OLE_COLOR value) override;
    STDMETHODIMP get_HighlightForeColor(OLE_COLOR* value) override;
    STDMETHODIMP put_HighlightForeColor(OLE_COLOR value) override;
    STDMETHODIMP get_hwnd(long* value) override;
    STDMETHODIMP get_Indentation(float* value) override;
    STDMETHODIMP put_Indentation(float value) override;
    STDMETHODIMP get_LineColor(OLE_COLOR* value) override;
    STDMETHODIMP put_LineColor(OLE_COLOR value) override;
    STDMETHODIMP LoadObjectProperties(IDispatch* object, VARIANT_BOOL clear, VARIANT_BOOL autoUpdate,
                                      VARIANT_BOOL* result) override;
    STDMETHODIMP get_LockRefresh(VARIANT_BOOL* value) override;
    STDMETHODIMP put_LockRefresh(VARIANT_BOOL value) override;
    STDMETHODIMP get_NameCaption(BSTR* value) override;
    STDMETHODIMP put_NameCaption(BSTR value) override;
    STDMETHODIMP get_Picture(IPictureDisp** value) override;
    STDMETHODIMP putref_Picture(IPictureDisp* value) override;
    STDMETHODIMP get_PictureLayout(omPictureLayout* value) override;
    STDMETHODIMP put_PictureLayout(omPictureLayout value) override;
    STDMETHODIMP get_Properties(_CProperties** value) override;
    STDMETHODIMP get_PropertyBackColor(OLE_COLOR* value) override;
    STDMETHODIMP put_PropertyBackColor(OLE_COLOR value) override;
    STDMETHODIMP get_PropertyForeColor(OLE_COLOR* value) override;
    STDMETHODIMP put_PropertyForeColor(OLE_COLOR value) override;
    STDMETHODIMP Refresh() override;
    STDMETHODIMP RegisterEditor(BSTR key, _CEditor* editor, VARIANT_BOOL* result) override;
    STDMETHODIMP get_SelectedProperty(_CProperty** value) override;
    STDMETHODIMP putref_SelectedProperty(_CProperty* value) override;
    STDMETHODIMP ShowAbout() override;
    STDMETHODIMP get_ShowDescription(VARIANT_BOOL* value) override;
    STDMETHODIMP put_ShowDescription(VARIANT_BOOL value) override;
    STDMETHODIMP get_ShowTabs(VARIANT_BOOL* value) override;
    STDMETHODIMP put_ShowTabs(VARIANT_BOOL value) override;
    STDMETHODIMP get_ShowToolTip(VARIANT_BOOL* value) override;
    STDMETHODIMP put_ShowToolTip(VARIANT_BOOL value) override;
    STDMETHODIMP get_Sorted(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Sorted(VARIANT_BOOL value) override;
    STDMETHODIMP get_SortOnHeaderClick(VARIANT_BOOL* value) override;
    STDMETHODIMP put_SortOnHeaderClick(VARIANT_BOOL value) override;
    STDMETHODIMP get_SortOrder(omSortOrder* value) override;
    STDMETHODIMP put_SortOrder(omSortOrder value) override;
    STDMETHODIMP get_TreeStyle(omTreeStyle* value) override;
    STDMETHODIMP put_TreeStyle(omTreeStyle value) override;
    STDMETHODIMP UnRegisterEditor(BSTR key) override;
    STDMETHODIMP get_ValueCaption(BSTR* value) override;
    STDMETHODIMP put_ValueCaption(BSTR value) override;
    STDMETHODIMP SetEditorParam(omEditorType editorType, BSTR name, BSTR value) override;
    STDMETHODIMP GetEditorParam(omEditorType editorType, BSTR name, BSTR* value) override;
    STDMETHODIMP RemoveEditorParam(omEditorType editorType, BSTR name) override;
    STDMETHODIMP get_ReadOnlyPropertyColor(OLE_COLOR* value) override;
    STDMETHODIMP put_ReadOnlyPropertyColor(OLE_COLOR value) override;
    STDMETHODIMP get_Recordset(IDispatch** value) override;
    STDMETHODIMP LoadRecordset(IDispatch* recordset, VARIANT_BOOL autoUpdate, VARIANT_BOOL* result) override;
    STDMETHODIMP get_RecordsetToolbar(omRecorsetToolbar* value) override;
    STDMETHODIMP put_RecordsetToolbar(omRecorsetToolbar value) override;
    STDMETHODIMP get_InspectionDepth(long* value) override;
    STDMETHODIMP put_InspectionDepth(long value) override;
    STDMETHODIMP get_ColumnDividerPosition(float* value) override;
    STDMETHODIMP put_ColumnDividerPosition(float value) override;
    STDMETHODIMP StartPropertyEdit(_CProperty* property) override;
    STDMETHODIMP get_DescriptionPaneHeight(float* value) override;
    STDMETHODIMP put_DescriptionPaneHeight(float value) override;
    STDMETHODIMP get_Version(BSTR* value) override;
    STDMETHODIMP ExpandCategory(BSTR path, VARIANT_BOOL expand) override;
    STDMETHODIMP get_ReadOnly(VARIANT_BOOL* value) override;
    STDMETHODIMP put_ReadOnly(VARIANT_BOOL value) override;
    STDMETHODIMP get_Unicode(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Unicode(VARIANT_BOOL value) override;

private:
    // ControlCore
    void OnFirstSited(HWND parking) override;
    HWND Window() const override { return m_Grid.m_Panes.m_Control.hWnd(); }
    void OnInitNew() override;
    void OnLoad(NamedValues& store) override;
    void OnSave(NamedValues& store) override;
    void OnAmbientChange(DISPID id) override;
    void OnUseEnded() override { m_Grid.LetObjectsGo(); }
    bool OwnsReferences(ULONG count) const override { return m_Grid.OwnsReferences(count); }
    void OnSize(int, int) override {} // the window reports it itself
    void OnDraw(HDC dc, const RECT& pixels) override;
    std::wstring AccessKeys() const override { return m_Grid.m_Input.AccessKeys(); }
    void OnAccessKey(wchar_t key) override { m_Grid.m_Input.OnAccessKey(key); }
    HRESULT OnTranslateKey(MSG& message) override;
    void OnTabbedInto(bool backward) override;
    DWORD KeysEaten() const override { return CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE; }
    void FinalRelease() override;
    // GridHost
    IUnknown* Outer() override { return Identity(); }
    bool UserMode() override { return ControlCore::UserMode(); }
    void NotifyChanged(DISPID id) override { ControlCore::NotifyChanged(id); }
    ConnectionPoints& Sinks() override { return *this; }
    ComPtr<IOleInPlaceFrame> ContainerFrame() override { return ControlCore::ContainerFrame(); }
    void FocusEntered() override { UiActivate(); }
    void FocusLeft() override;
    void AccessKeysChanged() override { NotifyAccessKeysChanged(); }
    // ControlFontListener
    void OnFontEdited(const FontDescription& font) override;

    template <class F> HRESULT Run(F&& body) {
        // The body may call into the host, which may let the control go.
        const ComPtr<IUnknown> self(Outer());
        return Guarded(__uuidof(_OrmiskGrid), std::forward<F>(body));
    }
    template <auto Field, class T> HRESULT Read(T* value);
    template <auto Field, class T> HRESULT Write(T value);
    void LoadSetting(NamedValues& store, const PropertyEntry& entry);
    void LoadFont(NamedValues& store, const wchar_t* key);
    void AdoptScaleUnits();
    void AdoptFont(IUnknown* font, bool own);

    ormisk::Grid m_Grid{*this};
    ControlFont m_Font{*this};
    bool m_OwnFont = false; // the host gave one; ambient fonts no longer count
};

} // namespace ormisk
