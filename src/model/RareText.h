#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace ormisk {

// A text that is empty in most objects, and then takes a pointer's room only.
class RareText {
public:
    operator const std::wstring&() const {
        static const std::wstring empty;
        return m_Text ? *m_Text : empty;
    }
    bool empty() const { return !m_Text; }
    RareText& operator=(std::wstring_view text) {
        m_Text = text.empty() ? nullptr : std::make_unique<std::wstring>(text);
        return *this;
    }
    friend bool operator==(const RareText& a, const std::wstring& b) {
        const std::wstring& text = a;
        return text == b;
    }

private:
    std::unique_ptr<std::wstring> m_Text;
};

} // namespace ormisk
