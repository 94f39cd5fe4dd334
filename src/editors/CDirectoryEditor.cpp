#include "editors/CDirectoryEditor.h"

#include "automation/Value.h"
#include "editors/FileDialog.h"

namespace ormisk {
namespace {

std::optional<std::uint32_t> FlagsFrom(const std::wstring& text) {
    const _variant_t value = ToVariant(text);
    std::uint32_t flags = 0;
    if (!IsNumeric(value) || FAILED(ReadColor(value, flags))) // any 32 bits, with a sign or without
        return {};
    return flags;
}

} // namespace

bool CDirectoryEditor::TakeFont(omEditorType type, const FontDescription& font) {
    if (type != omDirectoryEditor)
        return false;
    Field().SetFont(font);
    return true;
}

void CDirectoryEditor::ReadRow(_CProperty* property) {
    CheckPointer(property);
    omEditorType type = omDirectoryEditor;
    Check(property->get_EditorType(&type));
    PathParams params;
    params.Filter = Param(property, L"Filter");
    params.InitialDir = Param(property, L"InitialDir");
    params.DefaultExt = Param(property, L"DefaultExt");
    params.DialogCaption = Param(property, L"DialogCaption");
    params.FileFlags = FlagsFrom(Param(property, L"FileFlags"));
    params.FolderFlags = FlagsFrom(Param(property, L"FolderFlags"));
    m_Dialog = DescribePathDialog(type == omFileEditor, params);
    ReadColors(property);
    Field().SetText({});
}

// A value without a text, such as an array, has nothing to commit until the user chooses a path.
void CDirectoryEditor::SetValue(const VARIANT& value) {
    std::wstring text;
    m_HasValue = IgnoringFailures([&] { text = TextOf(value); });
    Show(text);
}

void CDirectoryEditor::CommitEdit() {
    if (m_HasValue)
        BoxEditor::CommitEdit();
}

void CDirectoryEditor::KeyDown(int& key, int shift) {
    if (key == VK_RETURN) {
        CommitAndLeave();
    } else if (key == VK_ESCAPE) {
        CancelAndLeave();
    } else {
        const unsigned row = Row();
        BoxEditor::KeyDown(key, shift);
        if (key != 0 && Serves(row) && key != VK_SHIFT && key != VK_CONTROL && key != VK_MENU && !Field().BoxHasFocus())
            FocusRows(); // the field itself has no use for keys
    }
}

void CDirectoryEditor::Character(int& keyAscii) {
    if (keyAscii == L' ') {
        keyAscii = 0;
        OnButton();
    } else if (keyAscii == VK_RETURN || keyAscii == VK_ESCAPE) {
        keyAscii = 0; // which the box answers with a beep
    }
}

void CDirectoryEditor::OnButton() {
    const ComPtr<_CEditor> self(this);
    const unsigned row = Row();
    Field().FocusBox();
    if (Takes(row))
        ShowDialog();
    if (Serves(row))
        Field().FocusBox();
}

void CDirectoryEditor::Place(int left, int top, int width, int height) {
    Arrange(PlacePath({left, top, left + width, top + height}, GetSystemMetrics(SM_CXVSCROLL)));
}

void CDirectoryEditor::ShowFolderDialog() {
    const ComPtr<_CEditor> self(this);
    const PathDialog dialog = m_Dialog;
    std::wstring path = m_sValue;
    if (Confirmed([&] { return AskForFolder(Owner(), dialog, path); }))
        SetValue(ToVariant(path));
}

} // namespace ormisk
