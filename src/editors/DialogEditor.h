#pragma once

#include "automation/Value.h"
#include "editors/DialogRules.h"
#include "editors/WindowEditor.h"
#include "platform/ModalScope.h"

#include <functional>

namespace ormisk {

// An editor that shows its value in a field with a "..." button and does the work in a dialog, at most one at a time.
// What the user confirms in it counts only for the row that it was opened for.
class DialogEditor : public WindowEditor {
public:
    void Activate(bool /*dropDown*/) override { ShowDialog(); }
    HWND TabStop() const override { return m_Field.KeyWindow(); }

protected:
    explicit DialogEditor(DialogField::Content content) : WindowEditor(m_Field), m_Content(content) {}

    // Opens the dialog of this editor and does what is to be done when it is confirmed.
    virtual void ShowDialog() = 0;
    // Runs a dialog; true when it was confirmed and the editor still serves the row.
    bool Confirmed(const std::function<bool()>& dialog) { return WithDialog(Tells::Container, dialog); }
    using Tells = ModalScope::Tells;
    bool WithDialog(Tells tells, const std::function<bool()>& dialog);
    HWND Owner() const { return Window(); }

    DialogField& Field() { return m_Field; }
    void ReadColors(_CProperty* property);
    void Arrange(const FieldPlaces& places);
    bool IsForRows(int key, int shift) const override; // a caption has no use for these
    void KeyDown(int& key, int shift) override;
    void OnButton() override;

    void Create(HWND parent) override { m_Field.Create(parent, this, m_Content); }
    void DestroyWindows() override { m_Field.Destroy(); }
    void Borrow(const EditorTools& tools) override;

private:
    DialogField m_Field;
    DialogField::Content m_Content;
    DialogHost* m_Dialogs = nullptr; // borrowed
    bool m_bInDialog = false;
};

// One that shows its value in a caption.
class CaptionEditor : public DialogEditor {
protected:
    CaptionEditor() : DialogEditor(DialogField::Content::Caption) {}
    void Place(int left, int top, int width, int height) override;
};

// One that shows a text in a box: the name of a file or folder, or what stands for it.
class BoxEditor : public DialogEditor {
protected:
    BoxEditor() : DialogEditor(DialogField::Content::Box) {}
    _variant_t Value() const override { return ToVariant(CutAtZero(m_sValue)); }
    void Show(const std::wstring& text);
    // Asks for a file, from the one named on; what is chosen is shown and committed at once.
    void ShowFileDialog(std::wstring path);

    std::wstring m_sValue;
    PathDialog m_Dialog; // as the row wants it
};

} // namespace ormisk
