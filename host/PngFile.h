#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// Writes a bitmap, which is selected nowhere, to a PNG file; an existing one is replaced. Throws a Failure.
void SavePng(HBITMAP bitmap, const std::wstring& path);

} // namespace ormisk
