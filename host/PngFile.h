#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// Writes a bitmap, which is selected nowhere, to a PNG file; an existing one is replaced. A picture of few colours gets
// a palette, which makes a small file. Throws a Failure.
void SavePng(HBITMAP bitmap, const std::wstring& path);

} // namespace ormisk
