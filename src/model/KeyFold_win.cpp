#include "model/KeyFold.h"

#include <windows.h>

#include <vector>

namespace ormisk {

namespace {

// CharLowerBuff walks its locale tables for each character; one walk over all of them serves every key.
std::vector<wchar_t> MakeFoldTable() {
    std::vector<wchar_t> table(0x10000);
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<wchar_t>(i);
    CharLowerBuffW(table.data(), static_cast<DWORD>(table.size()));
    return table;
}

} // namespace

wchar_t FoldKeyChar(wchar_t character) {
    static const std::vector<wchar_t> table = MakeFoldTable();
    return table[character];
}

} // namespace ormisk
