#include "grid/ControlFont.h"

#include "automation/Error.h"
#include "automation/Unknown.h"

namespace ormisk {

// What the font object holds on to; the control cuts it off before it goes.
class ControlFont::Sink final : public Unknown<IPropertyNotifySink> {
public:
    Sink(ControlFont& font, ControlFontListener& listener) : m_Font(&font), m_Listener(listener) {}
    void CutOff() { m_Font = nullptr; }
    void SetQuiet(bool quiet) { m_Quiet = quiet; }

    STDMETHODIMP OnChanged(DISPID) override {
        if (m_Font && !m_Quiet)
            IgnoringFailures([&] { m_Listener.OnFontEdited(m_Font->Description()); });
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

private:
    ControlFont* m_Font;
    ControlFontListener& m_Listener;
    bool m_Quiet = false;
};

ControlFont::ControlFont(ControlFontListener& listener)
    : m_Font(NewFont(L"MS Sans Serif", 82500)), m_Sink(Adopt(new Sink(*this, listener))) {
    const ComPtr<IConnectionPointContainer> points = Query<IConnectionPointContainer>(m_Font);
    if (points && SUCCEEDED(points->FindConnectionPoint(IID_IPropertyNotifySink, m_Point.GetAddressOf())))
        m_Point->Advise(m_Sink.Get(), &m_Cookie);
}

ControlFont::~ControlFont() {
    m_Sink->CutOff();
    if (m_Point && m_Cookie)
        m_Point->Unadvise(m_Cookie);
}

FontDescription ControlFont::Description() const { return DescribeFont(m_Font.Get()); }

void ControlFont::Take(const FontDescription& font) {
    const FontDescription present = Description();
    m_Sink->SetQuiet(true);
    try {
        ApplyFont(font, m_Font.Get());
    } catch (...) {
        IgnoringFailures([&] { ApplyFont(present, m_Font.Get()); });
        m_Sink->SetQuiet(false);
        throw;
    }
    m_Sink->SetQuiet(false);
}

} // namespace ormisk
