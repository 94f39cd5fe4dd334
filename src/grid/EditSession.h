#pragma once

#include "editors/CEditorListener.h"
#include "editors/EditorRegistry.h"
#include "grid/EditorPlace.h"
#include "tree/CNode.h"

#include <optional>

namespace ormisk {

class Grid;

// The life of one edit. Selecting an editable row shows its editor over the value cell at once; the tree pane keeps the
// focus until the user wants the editor. Committing and closing are two things: a confirmed editor stays. At most one
// editor is on screen, and none without a selected property row that may be edited.
class EditSession final : public EditorObserver {
public:
    explicit EditSession(Grid& grid);

    // Makes the editors of the library in the windows of the control.
    void CreateEditors();
    // At the end of the control: lets everything go, without a commit and without an event.
    void Release();
    // The entries of the list and the host's editors go, without a commit as well.
    void LetObjectsGo();

    bool IsEditorOpen() const { return m_CurrentEditor != nullptr; }
    ComPtr<_CEditor> CurrentEditor() const { return m_CurrentEditor; } // null when none is open
    HWND EditorWindow() const;                                         // of the open editor, or null
    HWND TabStop() const;                                              // of the open editor, or null
    HWND DropDownWindow() const;                                       // that it has dropped down, or null
    void StartEditor();                                                // of the selected row, if it has one
    void ActivateEditor(bool dropDown);
    void OpenAndActivate(bool dropDown) {
        if (!m_CurrentEditor)
            StartEditor();
        ActivateEditor(dropDown);
    }
    // Of a row that was left; unless another editor, in use by now, shares its window.
    void HideUnused(_CEditor* editor);
    // Commits; then hides the editor unless it is kept. A failing commit is reported and hides it in any case.
    void CloseEditor(bool keepOpen);
    // Focus to the editor, which starts from an empty text. False when it does not take the keys.
    bool BeginTyping();
    // After rows came, went or moved, each time: the open editor goes along with its own. Costs little when it need
    // not.
    void FollowRow();
    void Scrolled();
    void FontChanged();
    void Changed(HWND window); // its user changed what this window shows
    void CloseUp();            // what the open editor has dropped down
    // After the selected property changed: shows what it kept.
    void ReloadEditor(CProperty& property);
    void CommitAndHide();
    // Around a move to another record. The edit lands on the record that it was made on, or is given up; the editor
    // stays, for a new edit of the value that its row has afterwards.
    void CommitForMove();
    void ShowMoved();
    // The editor shows the stored value again; hidden by then, it commits nothing on the way.
    void CancelAndHide();

    // A key in the window of the open editor.
    void EditorKeyPress(int& keyAscii);
    // The text box of the text and number editors.
    void TextLostFocus();
    // A built-in editor, or another type that it serves too.
    bool IsOpen(omEditorType type) const { return m_CurrentEditor && m_CurrentEditor == m_Editors.Find(type, {}); }
    unsigned Starts() const { return m_Starts; } // of editors so far
    // The window of an editor shows what the user picked. Once refused, it is asked about again after AskAnew only.
    void UserPicked(omEditorType type);
    void AskAnew() { m_Asked.reset(); }

    // The model shrinks, without commit and without event: the node leaves the tree, or everything does.
    void NodeGoes(const CNode* node);
    void ForgetLostRow();
    void Drop();

    // EditorObserver
    void CommitEdit(_CEditor* editor) override { ApplyEditorValue(editor, false); }
    void CancelEdit(_CEditor* editor) override { ApplyEditorValue(editor, true); }

    EditorRegistry m_Editors;

private:
    bool LoadEditorValue(CProperty& property, _CEditor* editor);
    void GiveFont(_CEditor* editor, const CNode& node, omEditorType type);
    ComPtr<_CEditor> FindEditor(CProperty& property);
    void PlaceOpenEditor();
    // A commit that is not the user's word: about a value that the host has refused it is not asked once more.
    void Collect(_CEditor* editor);
    void ApplyEditorValue(_CEditor* editor, bool cancel);
    void ApplyValue(_CEditor* editor);
    void ReportAndAbandon(_CEditor* editor, const Ref<CNode>& node);
    void Abandon(_CEditor* editor);
    void HideCurrentEditor();
    void FocusTree();

    Grid& m_Grid;
    Ref<CNode> m_EditNode; // for which StartEditor last ran: the target of a commit, also of a late one
    ComPtr<_CEditor> m_CurrentEditor;
    EditorPlace m_Place;
    const CProperty* m_Validated = nullptr; // about whose new value the host is being asked; for comparing only
    std::optional<_variant_t> m_Asked;      // what the host was asked about, since a value was loaded or typed
    unsigned m_AskedPicks = 0;              // of the editor at that time
    bool m_Collecting = false;
    unsigned m_Starts = 0;
    unsigned m_Moves = 0; // to other records
    ComPtr<CEditorListener> m_editListener;
};

} // namespace ormisk
