#include "editors/EditorRegistry.h"

#include "editors/CTextEditor.h"

#include <algorithm>

namespace ormisk {
namespace {

constexpr const wchar_t* kRegisterSource = L"RegisterEditor : ";

struct MadeEditor {
    ComPtr<_CEditor> Editor;
    BuiltInEditor* BuiltIn;
};

template <class T> MadeEditor Make() {
    const auto editor = MakeObject<T>();
    return {editor, editor.Get()};
}

struct BuiltInKind {
    omEditorType Type;
    MadeEditor (*Make)();
};

// In the order of their making.
constexpr BuiltInKind kBuiltInKinds[] = {
    {omTextEditor, Make<CTextEditor>},
    {omNumberEditor, Make<CTextEditor>},
};

std::wstring InternalKey(omEditorType type) { return L"INTERNAL_" + std::to_wstring(static_cast<int>(type)); }

std::wstring CustomKey(const std::wstring& key) { return L"CUSTOM_" + key; }

bool SameKey(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), TRUE) ==
           CSTR_EQUAL;
}

} // namespace

void EditorRegistry::CreateBuiltInEditors(HWND treeWindow, const EditorWindows& windows) {
    for (const BuiltInKind& kind : kBuiltInKinds) {
        const MadeEditor made = kind.Make();
        EditorProxy editor(made.Editor.Get());
        editor.Init(treeWindow);
        made.BuiltIn->Attach(windows);
        Add({InternalKey(kind.Type), made.Editor, made.BuiltIn});
        editor.SetVisible(false);
    }
}

void EditorRegistry::RegisterEditor(const std::wstring& key, _CEditor* editor, HWND treeWindow) {
    if (key.find_first_not_of(L' ') == std::wstring::npos)
        Raise(ErrorCode::InvalidKey, kRegisterSource);
    if (!editor)
        return;
    if (Lookup(CustomKey(key)))
        Raise(ErrorCode::EditorKeyPresent, kRegisterSource);
    EditorProxy proxy(editor);
    proxy.Init(treeWindow);
    Add({CustomKey(key), editor});
    proxy.SetVisible(false);
}

void EditorRegistry::UnRegisterEditor(const std::wstring& key) noexcept {
    ComPtr<_CEditor> last; // released when the list is whole again
    if (const Entry* entry = Lookup(CustomKey(key))) {
        last = entry->Editor;
        m_Editors.erase(m_Editors.begin() + (entry - m_Editors.data()));
    }
}

ComPtr<_CEditor> EditorRegistry::Find(omEditorType type, const std::wstring& editorKey) const {
    if (type == omFileEditor) // the directory editor browses for files too
        type = omDirectoryEditor;
    const Entry* entry = Lookup(type == omCustomEditor ? CustomKey(editorKey) : InternalKey(type));
    return entry ? entry->Editor : nullptr;
}

BuiltInEditor* EditorRegistry::BuiltIn(_CEditor* editor) const {
    const auto found = std::find_if(m_Editors.begin(), m_Editors.end(),
                                    [&](const Entry& entry) { return entry.Editor.Get() == editor && entry.BuiltIn; });
    return found == m_Editors.end() ? nullptr : found->BuiltIn;
}

void EditorRegistry::Clear() noexcept {
    while (!m_Editors.empty()) {
        const Entry first = std::move(m_Editors.front());
        m_Editors.erase(m_Editors.begin());
        if (first.BuiltIn)
            first.BuiltIn->Attach({});
    }
}

const EditorRegistry::Entry* EditorRegistry::Lookup(const std::wstring& key) const {
    const auto found =
        std::find_if(m_Editors.begin(), m_Editors.end(), [&](const Entry& entry) { return SameKey(entry.Key, key); });
    return found == m_Editors.end() ? nullptr : &*found;
}

// The editor's `init` may have filed another one under the key meanwhile.
void EditorRegistry::Add(Entry entry) {
    if (Lookup(entry.Key))
        Raise(ErrorCode::EditorKeyPresent, kRegisterSource);
    m_Editors.push_back(std::move(entry));
}

} // namespace ormisk
