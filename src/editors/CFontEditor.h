#pragma once

#include "editors/DialogEditor.h"

namespace ormisk {

// The editor of font rows: the name of the font, and the system's font dialog, which commits at once. Its value is a
// font object of its own; what is no font is refused with 0x80040002.
class CFontEditor final : public CaptionEditor {
private:
    void ShowDialog() override { ShowFontDialog(); }
    void ShowFontDialog();
    void ReadRow(_CProperty* property) override;
    _variant_t Value() const override;
    void SetValue(const VARIANT& value) override;
    void DestroyWindows() override;
    IFontDisp* Font() const; // made when it is wanted

    COLORREF m_TextColor = 0; // of the dialog
    mutable ComPtr<IFontDisp> m_Font;
};

} // namespace ormisk
