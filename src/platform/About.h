#pragma once

#include <string>
#include <windows.h>

namespace ormisk {

// Shows product and version in a small modal window and returns when it is closed. The owner's top-level window is
// disabled meanwhile, and the focus goes back to where it was. Raises when the system refuses the window.
void ShowAboutWindow(HWND owner, const std::wstring& product, const std::wstring& version);

} // namespace ormisk
