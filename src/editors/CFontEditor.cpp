#include "editors/CFontEditor.h"

#include "automation/Value.h"
#include "platform/FontDescription.h"
#include "win/Dpi.h"
#include "win/Module.h"

#include <algorithm>
#include <commdlg.h>

namespace ormisk {
namespace {

LOGFONTW LogFontOf(const FontDescription& font, int dpi) {
    LOGFONTW log{};
    font.Name.copy(log.lfFaceName, std::size(log.lfFaceName) - 1);
    log.lfHeight = DialogFontHeight(font.Size, dpi);
    log.lfWeight = font.Weight;
    log.lfItalic = font.Italic;
    log.lfUnderline = font.Underline;
    log.lfStrikeOut = font.Strikethrough;
    log.lfCharSet = static_cast<BYTE>(font.Charset);
    return log;
}

void TakeLogFont(const LOGFONTW& log, int tenths, IFontDisp* font) {
    const ComPtr<IFont> target = Query<IFont>(font);
    CheckPointer(target.Get());
    CY size{};
    size.int64 = tenths * 1000LL;
    Check(target->put_Charset(log.lfCharSet));
    Check(target->put_Size(size));
    Check(target->put_Italic(log.lfItalic != 0));
    Check(target->put_Strikethrough(log.lfStrikeOut != 0));
    Check(target->put_Underline(log.lfUnderline != 0));
    Check(target->put_Weight(static_cast<short>(log.lfWeight)));
    Check(target->put_Name(_bstr_t(log.lfFaceName)));
}

} // namespace

void CFontEditor::DestroyWindows() {
    CaptionEditor::DestroyWindows();
    m_Font.Reset();
}

IFontDisp* CFontEditor::Font() const {
    if (!m_Font)
        Check(CoCreateInstance(CLSID_StdFont, nullptr, CLSCTX_INPROC_SERVER, IID_IFontDisp,
                               reinterpret_cast<void**>(m_Font.GetAddressOf())));
    return m_Font.Get();
}

void CFontEditor::ReadRow(_CProperty* property) {
    m_Font.Reset();
    Field().SetText({});
    ReadColors(property);
}

_variant_t CFontEditor::Value() const { return Window() ? _variant_t(Font()) : _variant_t(); }

// A font object of the host may do anything when it is read.
void CFontEditor::SetValue(const VARIANT& value) {
    const ComPtr<IUnknown> object(ObjectOf(value));
    const bool isFont = HoldsObject(value) && (!object || Query<IFont>(object) || Query<IFontDisp>(object));
    if (!isFont)
        Raise(ErrorCode::InvalidPropertyValue);
    const unsigned row = Row();
    if (!object)
        m_Font.Reset();
    const FontDescription font = DescribeFont(object ? object.Get() : Font());
    if (!Window() || Row() != row)
        return;
    ApplyFont(font, Font());
    Field().SetText(font.Name);
}

void CFontEditor::ShowFontDialog() {
    const ComPtr<_CEditor> self(this);
    if (!Window())
        return;
    const FontDescription font = DescribeFont(Font());
    LOGFONTW log = LogFontOf(font, DpiOf(Window()));
    CHOOSEFONTW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = Owner();
    dialog.hInstance = ThisModule();
    dialog.lpLogFont = &log;
    dialog.iPointSize = DialogPointSize(font.Size);
    dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS;
    dialog.rgbColors = m_TextColor;
    if (!Confirmed([&] { return ChooseFontW(&dialog) != FALSE; }))
        return;
    m_TextColor = dialog.rgbColors;
    TakeLogFont(log, dialog.iPointSize, Font());
    Field().SetText(log.lfFaceName);
    CommitEdit();
}

} // namespace ormisk
