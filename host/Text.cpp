#include "Text.h"

#include "Failure.h"

#include <windows.h>

#include <cstring>
#include <memory>
#include <optional>
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

// The text of a file with a mark at its beginning.
std::optional<std::wstring> DecodeMarked(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        std::wstring text((bytes.size() - 2) / sizeof(wchar_t), 0);
        std::memcpy(text.data(), bytes.data() + 2, text.size() * sizeof(wchar_t));
        return text;
    }
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return Decode(CP_UTF8, 0, bytes.substr(3));
    return std::nullopt;
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

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    const HANDLE opened = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    CheckLast(opened != INVALID_HANDLE_VALUE, path.c_str());
    const std::unique_ptr<HANDLE, CloseFile> file(opened);
    DWORD written = 0;
    CheckLast(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE,
              path.c_str());
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
    if (const auto marked = DecodeMarked(bytes))
        return *marked;
    const std::wstring text = Decode(CP_UTF8, MB_ERR_INVALID_CHARS, bytes);
    return text.empty() ? Decode(CP_ACP, 0, bytes) : text;
}

std::wstring ReadUtf8File(const std::wstring& path) {
    const std::string bytes = ReadBytes(path);
    const auto marked = DecodeMarked(bytes);
    return marked ? *marked : Decode(CP_UTF8, 0, bytes);
}

void WriteUtf8File(const std::wstring& path, const std::wstring& text) {
    const std::wstring fresh = path + L".new";
    std::wstring lines;
    for (const wchar_t sign : text) {
        if (sign == L'\n')
            lines += L'\r';
        lines += sign;
    }
    try {
        WriteBytes(fresh, EncodeUtf8(lines));
        CheckLast(MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE, path.c_str());
    } catch (const Failure&) {
        DeleteFileW(fresh.c_str());
        throw;
    }
}

std::wstring Widen(const char* ascii) { return std::wstring(ascii, ascii + std::strlen(ascii)); }

} // namespace ormisk
