#pragma once

#include "automation/ComPtr.h"

#include <optional>

namespace ormisk {

// A control on a form, as the form's host shows it to scripts: the control with the properties that its site adds to
// it.
//
// An object is one when the site of the control in it gives it as the control's extended object
// (IOleControlSite::GetExtendedControl). The control is reached through the object itself, which may have its
// interfaces, or through its member "Object". So every container that extends its controls by the standard way is
// recognised, and a bare control is not.
//
// Nothing for any other object; else the inner control, or the object itself when it gives none.
std::optional<ComPtr<IDispatch>> InnerControl(IDispatch* object);

} // namespace ormisk
