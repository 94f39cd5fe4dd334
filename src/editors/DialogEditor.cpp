#include "editors/DialogEditor.h"

#include "editors/FileDialog.h"
#include "win/Keys.h"
#include "win/Meanwhile.h"

namespace ormisk {

void DialogEditor::Borrow(const EditorTools& tools) {
    m_Dialogs = tools.Dialogs;
    WindowEditor::Borrow(tools);
}

bool DialogEditor::WithDialog(Tells tells, const std::function<bool()>& dialog) {
    if (m_bInDialog || !m_Dialogs || !Window())
        return false;
    const unsigned row = Row();
    const Meanwhile inDialog(m_bInDialog, true);
    bool confirmed = false;
    {
        const ModalScope modal(*m_Dialogs, tells);
        confirmed = dialog();
    }
    NotePick();
    return confirmed && Serves(row);
}

void DialogEditor::ReadColors(_CProperty* property) {
    CheckPointer(property);
    OLE_COLOR backColor = 0;
    OLE_COLOR foreColor = 0;
    Check(property->get_BackColor(&backColor));
    Check(property->get_ForeColor(&foreColor));
    m_Field.SetColors(backColor, foreColor);
}

void DialogEditor::Arrange(const FieldPlaces& places) {
    const Rect& field = places.Field;
    m_Field.Move(field.left, field.top, field.Width(), field.Height());
    m_Field.Arrange(places.Box, places.Button);
}

void DialogEditor::KeyDown(int& key, int shift) {
    if (!OpensEditor(key, shift))
        return;
    if (key == VK_DOWN)
        SettleAlt(Window());
    key = 0;
    ShowDialog();
}

// The keys that follow are for the field, not for its button.
void DialogEditor::OnButton() {
    const ComPtr<_CEditor> self(this);
    const unsigned row = Row();
    m_Field.SetFocus();
    if (Takes(row))
        ShowDialog();
}

bool DialogEditor::IsForRows(int key, int shift) const {
    return shift == 0 && IsMovingKey(key) && !m_Field.BoxHasFocus();
}

void BoxEditor::Show(const std::wstring& text) {
    m_sValue = text;
    Field().SetText(text);
}

void BoxEditor::ShowFileDialog(std::wstring path) {
    const ComPtr<_CEditor> self(this);
    const PathDialog dialog = m_Dialog; // the row may be another one meanwhile
    if (!Confirmed([&] { return AskForFile(Owner(), dialog, path); }))
        return;
    SetValue(ToVariant(path));
    CommitEdit();
}

void CaptionEditor::Place(int left, int top, int width, int height) {
    Arrange(PlaceCaption({left, top, left + width, top + height}, GetSystemMetrics(SM_CXVSCROLL)));
}

} // namespace ormisk
