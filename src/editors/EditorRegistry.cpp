#include "editors/EditorRegistry.h"

#include "editors/CListEditor.h"
#include "editors/CTextEditor.h"
#include "model/NumberText.h"

#include <optional>

namespace ormisk {
namespace {

constexpr const wchar_t* kRegisterSource = L"RegisterEditor : ";

template <class T> ComPtr<BuiltInEditor> Make() { return MakeObject<T>(); }

struct BuiltInKind {
    omEditorType Type = omTextEditor;
    ComPtr<BuiltInEditor> (*Make)() = nullptr;
    std::optional<omEditorType> Also; // a second type that the same object serves
};

// In the order of their making.
constexpr BuiltInKind kBuiltInKinds[] = {
    {omTextEditor, Make<CTextEditor>, {}},
    {omNumberEditor, Make<CTextEditor>, {}},
    {omListEditor, Make<CListEditor>, omBooleanEditor},
};

std::wstring InternalKey(omEditorType type) { return L"INTERNAL_" + std::to_wstring(static_cast<int>(type)); }

std::wstring CustomKey(const std::wstring& key) { return L"CUSTOM_" + key; }

} // namespace

void EditorRegistry::CreateBuiltInEditors(HWND treeWindow, const EditorWindows& windows) {
    for (const BuiltInKind& kind : kBuiltInKinds) {
        const ComPtr<BuiltInEditor> made = kind.Make();
        EditorProxy editor(made.Get());
        editor.Init(treeWindow);
        made->Attach(windows);
        Add({InternalKey(kind.Type), made, made.Get()});
        if (kind.Also)
            Add({InternalKey(*kind.Also), made, made.Get()});
        editor.SetVisible(false);
    }
}

void EditorRegistry::RegisterEditor(const std::wstring& key, _CEditor* editor, HWND treeWindow) {
    if (TrimBlanks(key).empty())
        Raise(ErrorCode::InvalidKey, kRegisterSource);
    if (!editor)
        return;
    const std::wstring custom = CustomKey(key);
    if (m_Editors.Find(FoldedKey(custom)))
        Raise(ErrorCode::EditorKeyPresent, kRegisterSource);
    EditorProxy proxy(editor);
    const unsigned use = m_Uses;
    proxy.Init(treeWindow);
    if (m_Closed || m_Uses != use)
        return;
    Add({custom, editor});
    proxy.SetVisible(false);
}

void EditorRegistry::UnRegisterEditor(const std::wstring& key) noexcept {
    // The entry, and with it the editor, goes when the collection is whole again.
    IgnoringFailures([&] { m_Editors.Remove(FoldedKey(CustomKey(key))); });
}

void EditorRegistry::EndUse() noexcept {
    ++m_Uses;
    IgnoringFailures([&] {
        std::vector<std::unique_ptr<Entry>> removed; // these too go when the collection is whole again
        for (long i = m_Editors.Count(); i > 0; --i)
            if (!m_Editors.At(i)->BuiltIn)
                removed.push_back(m_Editors.RemoveAt(i));
    });
}

ComPtr<_CEditor> EditorRegistry::Find(omEditorType type, const std::wstring& editorKey) const {
    const Entry* entry = m_Editors.Find(FoldedKey(type == omCustomEditor ? CustomKey(editorKey) : InternalKey(type)));
    return entry ? entry->Editor : nullptr;
}

BuiltInEditor* EditorRegistry::BuiltIn(_CEditor* editor) const {
    for (const auto& entry : m_Editors)
        if (entry->BuiltIn && entry->Editor.Get() == editor)
            return entry->BuiltIn;
    return nullptr;
}

void EditorRegistry::Clear() {
    m_Closed = true;
    while (m_Editors.Count() > 0) {
        const auto first = m_Editors.RemoveAt(1);
        if (first->BuiltIn)
            first->BuiltIn->Attach({});
    }
}

// The editor's `init` may have filed another one under the key meanwhile.
void EditorRegistry::Add(Entry entry) {
    if (m_Editors.Find(entry.Folded()))
        Raise(ErrorCode::EditorKeyPresent, kRegisterSource);
    m_Editors.Add(std::make_unique<Entry>(std::move(entry)));
}

} // namespace ormisk
