#pragma once

#include "editors/DialogEditor.h"

namespace ormisk {

// The editor of file rows and of directory rows: a path that only the dialog changes. A file is committed at once, a
// folder waits for ENTER or for the row to be left, as a typed text does.
class CDirectoryEditor final : public BoxEditor {
public:
    void TakeControlFont(const FontDescription& font) override { Field().SetFont(font); }
    bool TakeFont(omEditorType type, const FontDescription& font) override; // a file row has that of the row before

private:
    void ShowDialog() override { m_Dialog.File ? ShowFileDialog(m_sValue) : ShowFolderDialog(); }
    void ShowFolderDialog();
    void ReadRow(_CProperty* property) override;
    void SetValue(const VARIANT& value) override;
    void CommitEdit() override;
    void SetFont(HFONT /*font*/) override {}
    void KeyDown(int& key, int shift) override;
    void Character(int& keyAscii) override;
    void OnButton() override;
    void Place(int left, int top, int width, int height) override;

    bool m_HasValue = false; // a text that can be committed
};

} // namespace ormisk
