#include "sources/MemberCategory.h"

#include "sources/DebugOutput.h"

#include <algorithm>

namespace ormisk {

namespace {

// The names of the codes -1, -2 and so on.
constexpr const wchar_t* kStandardCategories[] = {L"Nil",  L"Misc", L"Font", L"Position", L"Appearance", L"Behavior",
                                                  L"Data", L"List", L"Text", L"Scale",    L"DDE"};
constexpr PROPCAT kLowestStandard = -static_cast<PROPCAT>(std::size(kStandardCategories));

constexpr const wchar_t* kStockCategory = L"Misc";

bool IsStock(MEMBERID id) { return (id >= -555 && id <= -500) || id == 1550 || id == 1551; }

// The statements that can fail, by their mark in the debug output.
enum class Mark { Map = 1, Name = 2 };

void ReportFailure(const MemberInfo& member, HRESULT hr, Mark mark) {
    const AutomationError error = TakeErrorInfo(hr);
    WriteDebugLine(L"ERR_GETCATNAME : " + member.name + L" >> " + error.description + L", Err: " +
                   std::to_wstring(error.number) + L", Erl: " + std::to_wstring(static_cast<int>(mark)));
}

} // namespace

PROPCAT MapMemberCategory(ICategorizeProperties* categories, const MemberInfo& member, LCID locale,
                          std::wstring& category) {
    if (IsStock(member.memberId)) {
        category = kStockCategory;
        return 0;
    }
    if (!categories)
        return 0;
    PROPCAT code = 0;
    SetErrorInfo(0, nullptr); // an older failure is not this one
    const HRESULT mapped = categories->MapPropertyToCategory(member.memberId, &code);
    if (FAILED(mapped)) {
        code = 0;
        ReportFailure(member, mapped, Mark::Map);
    }
    if (code < 0 && code >= kLowestStandard) {
        category = kStandardCategories[-1 - code];
        return code;
    }
    category.clear();
    BSTR name = nullptr;
    SetErrorInfo(0, nullptr);
    const HRESULT named = categories->GetCategoryName(code, locale, &name);
    if (SUCCEEDED(named))
        category = FromBstr(name);
    else
        ReportFailure(member, named, Mark::Name);
    SysFreeString(name);
    return code;
}

} // namespace ormisk
