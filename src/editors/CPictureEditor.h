#pragma once

#include "editors/DialogEditor.h"

namespace ormisk {

// The editor of picture rows: a prompt that stands for the picture, or the name of the file that the user chose
// instead, which is committed at once. Backspace and Delete put the prompt for no picture there.
class CPictureEditor final : public BoxEditor {
    void ShowDialog() override { ShowFileDialog({}); }
    void Create(HWND parent) override;
    void ReadRow(_CProperty* property) override;
    void SetValue(const VARIANT& value) override { Show(TextOf(value)); }
    void KeyDown(int& key, int shift) override;
    void OnGotFocus() override;
    void Place(int left, int top, int width, int height) override;

    std::wstring m_sNoPicturePrompt;
};

} // namespace ormisk
