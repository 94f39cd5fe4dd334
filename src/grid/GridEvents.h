#pragma once

#include "automation/Events.h"
#include "model/CProperty.h"
#include "platform/Pane.h"

namespace ormisk {

// The public events, one typed method each: the only place that builds event arguments and reads by-reference ones
// back. What a handler raises comes out of the method. After any of them the model, the selection and the control
// itself may be other than before.
class GridEvents {
public:
    explicit GridEvents(ConnectionPoints& sinks) : m_Sinks(sinks) {}

    // All but the name are written back, also those that a failing handler had written by then.
    void AddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType, bool& cancel);
    void PropertyAdded(CProperty& property);
    void PropertyDeleted(CProperty& property);
    // `doDefault` is written back; the context's handle fits into the public 32 bits.
    void PropertyDraw(HDC dc, CProperty& property, long cx, long cy, omDrawStage stage, bool& doDefault);
    // `swap` is written back in both comparisons.
    void PropertyCompare(CProperty& first, CProperty& second, bool nameButtonClicked, bool& swap);
    void CategoryCompare(const std::wstring& first, const std::wstring& second, bool nameButtonClicked, bool& swap);
    void PropertyValueChanged(CProperty& property);
    void CategoryExpanding(const std::wstring& category, bool& cancel);
    void CategoryCollapsing(const std::wstring& category, bool& cancel);
    void SelChanged(CProperty* property); // null for a category row or no selection
    void HelpRequested(CProperty& property, bool& processDefault);
    void ValidateValue(CProperty& property, const VARIANT& newValue, bool& cancel);
    // Whatever the host puts in place of the value is the caller's.
    void ShowEditorDialog(CProperty& property, VARIANT& value);
    void ActiveViewChanged();
    void DisplayError(const std::wstring& message, long number, bool& showMessageBox);
    void KeyUp(int& keyCode, int& shift);
    void KeyDown(int& keyCode, int& shift);
    void KeyPress(int& keyAscii);
    // Coordinates in the control's scale.
    void Mouse(MouseStage stage, int button, int shift, float x, float y, omHitItem hitItem);

private:
    void Tell(DISPID id, std::initializer_list<VARIANT> given);
    // One of the arguments refers to the flag.
    bool Ask(DISPID id, std::initializer_list<VARIANT> given, bool answer, VARIANT_BOOL& flag);
    void FireKey(DISPID id, int& keyCode, int& shift);

    ConnectionPoints& m_Sinks;
};

} // namespace ormisk
