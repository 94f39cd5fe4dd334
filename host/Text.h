#pragma once

#include <string>

namespace ormisk {

enum class Stream { Output, Error };

// Writes a line at once: UTF-8 to a file or pipe, as it is to a console.
void PrintLine(Stream stream, const std::wstring& line);

// The text of a script file: UTF-16 or UTF-8 by its mark, else UTF-8 where it is valid, else the system's code page.
// Throws a Failure when the file cannot be read.
std::wstring ReadTextFile(const std::wstring& path);

// The same for a file that is UTF-8 where it has no mark: bytes that are none show as U+FFFD.
std::wstring ReadUtf8File(const std::wstring& path);

// Writes UTF-8, each \n as a line end of Windows. A file that is there already is replaced when all is written. Throws
// a Failure.
void WriteUtf8File(const std::wstring& path, const std::wstring& text);

// Wide form of a message made of ASCII characters.
std::wstring Widen(const char* ascii);

} // namespace ormisk
