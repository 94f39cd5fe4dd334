#include "ScriptError.h"

#include "Failure.h"

#include <cwchar>
#include <utility>

namespace ormisk {

ScriptError::~ScriptError() {
    SysFreeString(m_Info.bstrSource);
    SysFreeString(m_Info.bstrDescription);
    SysFreeString(m_Info.bstrHelpFile);
}

std::wstring ScriptError::Describe(HRESULT result) {
    if (const auto fillIn = std::exchange(m_Info.pfnDeferredFillIn, nullptr))
        fillIn(&m_Info);
    const HRESULT number = m_Info.scode ? m_Info.scode : result;
    const bool described = m_Info.bstrDescription && m_Info.bstrDescription[0];
    std::wstring text = described ? std::wstring(m_Info.bstrDescription) : SystemText(number);
    text += L" (";
    if (m_Info.bstrSource && m_Info.bstrSource[0])
        text += std::wstring(m_Info.bstrSource) + L", ";
    wchar_t digits[16];
    std::swprintf(digits, ARRAYSIZE(digits), L"&H%08lX)", static_cast<unsigned long>(number));
    return text + digits;
}

} // namespace ormisk
