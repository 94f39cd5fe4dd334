#pragma once

#include "automation/Error.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <windows.h>

namespace ormisk {

// Named texts that tune the editors: of one property, or of a control, which keeps them by editor type as well. A name
// counts without the blanks around it and in any case; a blank one raises InvalidKey.
class EditorParamStore {
public:
    void Set(std::wstring_view name, std::wstring value, std::optional<long> editorType = {}) {
        m_Values[KeyOf(name, editorType)] = std::move(value);
    }
    // "" for what was never set.
    std::wstring Get(std::wstring_view name, std::optional<long> editorType = {}) const {
        const auto found = m_Values.find(KeyOf(name, editorType));
        return found == m_Values.end() ? std::wstring() : found->second;
    }
    void Remove(std::wstring_view name, std::optional<long> editorType = {}) {
        m_Values.erase(KeyOf(name, editorType));
    }

private:
    static std::wstring KeyOf(std::wstring_view name, std::optional<long> editorType) {
        const auto first = name.find_first_not_of(L' ');
        if (first == std::wstring_view::npos)
            Raise(ErrorCode::InvalidKey);
        std::wstring upper(name.substr(first, name.find_last_not_of(L' ') - first + 1));
        CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
        return L"EDPARAM_" + upper + (editorType ? L"_" + std::to_wstring(*editorType) : std::wstring());
    }

    std::map<std::wstring, std::wstring> m_Values;
};

} // namespace ormisk
