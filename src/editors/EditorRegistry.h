#pragma once

#include "editors/BuiltInEditor.h"
#include "editors/EditorContract.h"
#include "model/KeyedCollection.h"

#include <memory>
#include <string>
#include <vector>

namespace ormisk {

// The editors of one control: built-in ones by type, those of the host by its key.
class EditorRegistry {
public:
    // Makes the built-in editors, each told its parent window, given its windows, filed and hidden.
    void CreateBuiltInEditors(HWND treeWindow, const EditorTools& tools);

    // Files an editor of the host under its key, after `init` with the parent window, and hides it. Nothing is passed
    // over. Raises InvalidKey for a blank key, EditorKeyPresent for a key in use whatever its case, and what the editor
    // raises.
    void RegisterEditor(const std::wstring& key, _CEditor* editor, HWND treeWindow);
    // After the control closed its editor. An unknown key is no error.
    void UnRegisterEditor(const std::wstring& key) noexcept;
    // The host has done with the control. Its editors go, and one that is being registered is not filed any more.
    void EndUse() noexcept;
    unsigned Uses() const { return m_Uses; } // that have ended so far

    // The font of the control is this one by now.
    void TakeControlFont(const FontDescription& font) const;
    // The control's windows take keys, or take none.
    void SetEnabled(bool enabled) const;
    void LetObjectsGo() const;
    // Whether an editor of ours has this object as its value.
    bool Holds(const IUnknown* object) const;

    // The editor of a row, null when there is none. The key counts for custom editors only.
    ComPtr<_CEditor> Find(omEditorType type, const std::wstring& editorKey) const;
    // The further operations of an editor of ours, null for one of the host. Valid while the registry holds it.
    BuiltInEditor* BuiltIn(_CEditor* editor) const;

    // At the control's end: lets go of all, the first one first, and takes the windows back. From then on none is
    // filed.
    void Clear();

private:
    struct BuiltInEntry {
        omEditorType Type;
        ComPtr<BuiltInEditor> Editor;
    };
    struct Custom {
        std::wstring Key;
        ComPtr<_CEditor> Editor;

        FoldedKey Folded() const { return FoldedKey(Key); }
    };

    unsigned m_Uses = 0;
    bool m_Closed = false;
    std::vector<BuiltInEntry> m_BuiltIn;
    KeyedCollection<Custom, std::unique_ptr<Custom>, &Custom::Folded> m_Custom;
};

} // namespace ormisk
