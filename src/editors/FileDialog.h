#pragma once

#include <string>
#include <windows.h>

namespace ormisk {

struct PathDialog;

// The system's dialogs for a path: true when the user chose one, which is in `path` then. It is where the dialog starts
// before, if the dialog can make anything of it.
bool AskForFile(HWND owner, const PathDialog& dialog, std::wstring& path);
bool AskForFolder(HWND owner, const PathDialog& dialog, std::wstring& path);

} // namespace ormisk
