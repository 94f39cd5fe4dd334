#pragma once

#include <string>

namespace ormisk {

enum class Stream { Output, Error };

// Writes a line at once: UTF-8 to a file or pipe, as it is to a console.
void PrintLine(Stream stream, const std::wstring& line);

// The text of a script file: UTF-16 or UTF-8 by its mark, else UTF-8 where it is valid, else the system's code page.
// Throws a Failure when the file cannot be read.
std::wstring ReadTextFile(const std::wstring& path);

// Wide form of a message made of ASCII characters.
std::wstring Widen(const char* ascii);

} // namespace ormisk
