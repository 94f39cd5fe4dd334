#include "editors/CEditorListener.h"

#include <comutil.h>

namespace ormisk {
namespace {

// The events of __CEditorListener.
constexpr DISPID kCommitEdit = 1;
constexpr DISPID kCancelEdit = 2;

} // namespace

STDMETHODIMP CEditorListener::NotifyCommit(_CEditor* anEditor) {
    return Notify(anEditor, &EditorObserver::CommitEdit, kCommitEdit);
}

STDMETHODIMP CEditorListener::NotifyCancel(_CEditor* anEditor) {
    return Notify(anEditor, &EditorObserver::CancelEdit, kCancelEdit);
}

// What the observer raises keeps the event from the sinks, as the first of several handlers does.
HRESULT CEditorListener::Notify(_CEditor* editor, void (EditorObserver::*tell)(_CEditor*), DISPID event) {
    const ComPtr<_CEditorListener> self(this);
    const ComPtr<_CEditor> held(editor);
    return Guarded(__uuidof(_CEditorListener), [&] {
        if (m_Observer)
            (m_Observer->*tell)(editor);
        if (HasListeners()) {
            _variant_t argument(static_cast<IDispatch*>(editor));
            Fire(event, &argument, 1);
        }
    });
}

} // namespace ormisk
