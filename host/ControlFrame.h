#pragma once

#include "ComObject.h"

#include <oleidl.h>

namespace ormisk {

// The frame of the one control: it knows who is active in it. It has neither menus nor tool space.
class ControlFrame final : public ComObject<IOleInPlaceFrame> {
public:
    explicit ControlFrame(HWND window) : m_Window(window) {}

    // The control's active object, null while none is UI active.
    IOleInPlaceActiveObject* Active() const { return m_Active.Get(); }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP GetBorder(RECT* border) override;
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU shared, OLEMENUGROUPWIDTHS* widths) override;
    STDMETHODIMP SetMenu(HMENU shared, HOLEMENU descriptor, HWND active) override;
    STDMETHODIMP RemoveMenus(HMENU shared) override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(MSG* message, WORD id) override;

private:
    void* Find(REFIID iid) override;

    HWND m_Window;
    ComPtr<IOleInPlaceActiveObject> m_Active;
};

} // namespace ormisk
