#include "Text.h"

#include "Failure.h"

#include <windows.h>

#include <cstring>
#include <memory>
#include <string_view>

namespace ormisk {
namespace {

struct CloseFile {
    using pointer = HANDLE;
    void operator()(HANDLE file) const { CloseHandle(file); }
};

std::wstring Decode(UINT codePage, DWORD flags, std::string_view bytes) {
    if (bytes.empty())
        return {};
    const int size = static_cast<int>(bytes.size());
    std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(codePage, flags, bytes.data(), size, nullptr, 0)),
                      0);
    MultiByteToWideChar(codePage, flags, bytes.data(), size, text.data(), static_cast<int>(text.size()));
    return text;
}

std::string EncodeUtf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)), 0);
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::string ReadBytes(const std::wstring& path) {
    const HANDLE opened = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    CheckLast(opened != INVALID_HANDLE_VALUE, path.c_str());
    const std::unique_ptr<HANDLE, CloseFile> file(opened);
    std::string bytes;
    char block[16384];
    for (DWORD read = 1; read > 0; bytes.append(block, read))
        CheckLast(ReadFile(file.get(), block, sizeof block, &read, nullptr) != FALSE, path.c_str());
    return bytes;
}

} // namespace

void PrintLine(Stream stream, const std::wstring& line) {
    const HANDLE handle = GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    const std::wstring ended = line + L"\n";
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode)) {
        WriteConsoleW(handle, ended.data(), static_cast<DWORD>(ended.size()), &written, nullptr);
        return;
    }
    const std::string bytes = EncodeUtf8(ended);
    WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::wstring ReadTextFile(const std::wstring& path) {
    const std::string bytes = ReadBytes(path);
    const std::string_view view = bytes;
    if (view.starts_with("\xFF\xFE")) {
        std::wstring text((view.size() - 2) / sizeof(wchar_t), 0);
        std::memcpy(text.data(), view.data() + 2, text.size() * sizeof(wchar_t));
        return text;
    }
    if (view.starts_with("\xEF\xBB\xBF"))
        return Decode(CP_UTF8, 0, view.substr(3));
    const std::wstring text = Decode(CP_UTF8, MB_ERR_INVALID_CHARS, view);
    return text.empty() ? Decode(CP_ACP, 0, view) : text;
}

std::wstring Widen(const char* ascii) { return std::wstring(ascii, ascii + std::strlen(ascii)); }

} // namespace ormisk
