#pragma once

#include "automation/Error.h"
#include "model/NumberText.h"
#include "model/UpperCase.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

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
        const std::wstring_view trimmed = TrimBlanks(name);
        if (trimmed.empty())
            Raise(ErrorCode::InvalidKey);
        std::wstring key = L"EDPARAM_";
        key += trimmed;
        MakeUpper(key);
        if (editorType)
            key += L"_" + std::to_wstring(*editorType);
        return key;
    }

    std::map<std::wstring, std::wstring> m_Values;
};

} // namespace ormisk
