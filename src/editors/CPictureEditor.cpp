#include "editors/CPictureEditor.h"

namespace ormisk {
namespace {

constexpr int kLeftMargin = 2;

} // namespace

void CPictureEditor::Create(HWND parent) {
    BoxEditor::Create(parent);
    Field().SetLeftMargin(kLeftMargin);
}

void CPictureEditor::ReadRow(_CProperty* property) {
    Field().SetText({});
    ReadColors(property);
    m_Dialog = {};
    m_Dialog.Filter = Param(property, L"Filter");
    m_Dialog.Caption = Param(property, L"DialogCaption");
    m_Dialog.InitialDir = Param(property, L"InitialDir");
    m_sNoPicturePrompt = Param(property, L"NoPicturePrompt");
    if (m_sNoPicturePrompt.empty())
        m_sNoPicturePrompt = L"(none)";
}

void CPictureEditor::KeyDown(int& key, int shift) {
    switch (key) {
    case VK_BACK:
    case VK_DELETE:
        Show(m_sNoPicturePrompt);
        key = 0;
        break;
    case VK_RETURN:
        CommitEdit();
        break;
    case VK_ESCAPE:
        CancelEdit();
        break;
    default:
        BoxEditor::KeyDown(key, shift);
    }
}

// The field itself has no use for keys.
void CPictureEditor::OnGotFocus() {
    const ComPtr<_CEditor> self(this);
    BoxEditor::OnGotFocus();
    if (IsVisible() && !Field().BoxHasFocus())
        Field().FocusBox();
}

void CPictureEditor::Place(int left, int top, int width, int height) {
    Arrange(PlacePicture({left, top, left + width, top + height}, GetSystemMetrics(SM_CXVSCROLL)));
}

} // namespace ormisk
