#include "editors/EditorRegistry.h"

#include "editors/CColorEditor.h"
#include "editors/CCustomDialog.h"
#include "editors/CDateEditor.h"
#include "editors/CDirectoryEditor.h"
#include "editors/CFontEditor.h"
#include "editors/CListEditor.h"
#include "editors/CPictureEditor.h"
#include "editors/CTextEditor.h"
#include "model/NumberText.h"

#include <algorithm>
#include <optional>
#include <utility>

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
    {omTextEditor, Make<CTextEditor>, {}},       {omDateEditor, Make<CDateEditor>, {}},
    {omNumberEditor, Make<CTextEditor>, {}},     {omListEditor, Make<CListEditor>, omBooleanEditor},
    {omFontEditor, Make<CFontEditor>, {}},       {omColorEditor, Make<CColorEditor>, {}},
    {omCustomDialog, Make<CCustomDialog>, {}},   {omDirectoryEditor, Make<CDirectoryEditor>, omFileEditor},
    {omPictureEditor, Make<CPictureEditor>, {}},
};

} // namespace

void EditorRegistry::CreateBuiltInEditors(HWND treeWindow, const EditorTools& tools) {
    for (const BuiltInKind& kind : kBuiltInKinds) {
        const ComPtr<BuiltInEditor> made = kind.Make();
        EditorProxy editor(made.Get());
        editor.Init(treeWindow);
        made->Attach(tools);
        m_BuiltIn.push_back({kind.Type, made});
        if (kind.Also)
            m_BuiltIn.push_back({*kind.Also, made});
        editor.SetVisible(false);
    }
}

void EditorRegistry::RegisterEditor(const std::wstring& key, _CEditor* editor, HWND treeWindow) {
    if (TrimBlanks(key).empty())
        Raise(ErrorCode::InvalidKey, kRegisterSource);
    if (!editor)
        return;
    const auto checkFree = [&] {
        if (m_Custom.Find(FoldedKey(key)))
            Raise(ErrorCode::EditorKeyPresent, kRegisterSource);
    };
    checkFree();
    EditorProxy proxy(editor);
    const unsigned use = m_Uses;
    proxy.Init(treeWindow);
    if (m_Closed || m_Uses != use)
        return;
    checkFree(); // its `init` may have filed another one under the key
    m_Custom.Add(std::make_unique<Custom>(Custom{key, editor}));
    proxy.SetVisible(false);
}

// In the following, an editor goes when the collection is whole again.

void EditorRegistry::UnRegisterEditor(const std::wstring& key) noexcept {
    IgnoringFailures([&] { m_Custom.Remove(FoldedKey(key)); });
}

void EditorRegistry::EndUse() noexcept {
    ++m_Uses;
    m_Custom.TakeAll();
}

void EditorRegistry::Clear() {
    m_Closed = true;
    for (const BuiltInEntry& entry : std::exchange(m_BuiltIn, {}))
        entry.Editor->Attach({});
    m_Custom.TakeAll();
}

void EditorRegistry::TakeControlFont(const FontDescription& font) const {
    for (const BuiltInEntry& entry : m_BuiltIn)
        entry.Editor->TakeControlFont(font);
}

// What closes then gives the focus away, which the host hears of.
void EditorRegistry::SetEnabled(bool enabled) const {
    for (const BuiltInEntry& entry : std::vector(m_BuiltIn))
        entry.Editor->SetEnabled(enabled);
}

// An object may do anything when it is let go.
void EditorRegistry::LetObjectsGo() const {
    for (const BuiltInEntry& entry : std::vector(m_BuiltIn))
        entry.Editor->LetObjectsGo();
}

bool EditorRegistry::Holds(const IUnknown* object) const {
    return std::ranges::any_of(m_BuiltIn, [&](const BuiltInEntry& entry) { return entry.Editor->Holds(object); });
}

ComPtr<_CEditor> EditorRegistry::Find(omEditorType type, const std::wstring& editorKey) const {
    if (type == omCustomEditor) {
        const Custom* custom = m_Custom.Find(FoldedKey(editorKey));
        return custom ? custom->Editor : nullptr;
    }
    const auto found = std::ranges::find(m_BuiltIn, type, &BuiltInEntry::Type);
    return found != m_BuiltIn.end() ? found->Editor : nullptr;
}

BuiltInEditor* EditorRegistry::BuiltIn(_CEditor* editor) const {
    for (const BuiltInEntry& entry : m_BuiltIn)
        if (entry.Editor.Get() == editor)
            return entry.Editor.Get();
    return nullptr;
}

} // namespace ormisk
