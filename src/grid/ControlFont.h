#pragma once

#include "platform/FontDescription.h"

#include <wrl/client.h>

namespace ormisk {

class ControlFontListener {
public:
    // A host changed a member of the font object that it was given.
    virtual void OnFontEdited(const FontDescription& font) = 0;

protected:
    ~ControlFontListener() = default;
};

// The font object of a control: hosts get it, and hear of nothing, but the control hears of every change they make to
// it.
class ControlFont {
public:
    explicit ControlFont(ControlFontListener& listener);
    ControlFont(const ControlFont&) = delete;
    ControlFont& operator=(const ControlFont&) = delete;
    ~ControlFont();

    IFontDisp* Object() const { return m_Font.Get(); } // borrowed; lives as long as a host keeps it
    FontDescription Description() const;
    // Copies the description into the object, without a report. Raises, and the object is as before.
    void Take(const FontDescription& font);

private:
    class Sink;

    Microsoft::WRL::ComPtr<IFontDisp> m_Font;
    Microsoft::WRL::ComPtr<IConnectionPoint> m_Point;
    Microsoft::WRL::ComPtr<Sink> m_Sink;
    DWORD m_Cookie = 0;
};

} // namespace ormisk
