#pragma once

#include "automation/DispatchObject.h"

#include <ormisk.h>

namespace ormisk {

// Who stores the value of an editor, or loads it anew. Raises; the error reaches the editor.
class EditorObserver {
public:
    virtual void CommitEdit(_CEditor* anEditor) = 0;
    virtual void CancelEdit(_CEditor* anEditor) = 0;

protected:
    ~EditorObserver() = default;
};

// The way of an editor back to its control: each call reaches the observer, then the event sinks. It outlives the
// control in the hands of a custom editor, so the control cuts itself off.
class CEditorListener final : public DispatchObject<_CEditorListener, ::CEditorListener, __CEditorListener> {
public:
    explicit CEditorListener(EditorObserver* observer) : m_Observer(observer) {}
    void CutObserver() { m_Observer = nullptr; }

    STDMETHODIMP NotifyCommit(_CEditor* anEditor) override;
    STDMETHODIMP NotifyCancel(_CEditor* anEditor) override;

private:
    HRESULT Notify(_CEditor* editor, void (EditorObserver::*tell)(_CEditor*), DISPID event);

    EditorObserver* m_Observer; // borrowed
};

} // namespace ormisk
