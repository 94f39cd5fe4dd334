#include "Rows.h"

#include "GridWindow.h"

#include <algorithm>
#include <random>
#include <string>

namespace ormisk::bench {
namespace {

constexpr int kCategories = 100;

} // namespace

Rows::Rows(int count) {
    for (int i = 0; i < count; ++i) {
        m_Names.emplace_back((L"Property " + std::to_wstring(i)).c_str());
        m_Values.emplace_back((L"Value of " + std::to_wstring(i)).c_str());
    }
    for (int i = 0; i < kCategories; ++i)
        m_Categories.emplace_back((L"Category " + std::to_wstring(i)).c_str());
}

Rows Rows::Shuffled(int count) {
    Rows rows(count);
    std::mt19937 random(1);
    const auto each = static_cast<std::size_t>(rows.CategorySize());
    for (std::size_t i = 0; i < rows.m_Names.size(); ++i) {
        const std::size_t start = i / each * each;
        std::swap(rows.m_Names[i], rows.m_Names[start + random() % (i - start + 1)]);
    }
    return rows;
}

int Rows::CategorySize() const { return std::max(1, Count() / kCategories); }

BSTR Rows::Category(int row) const {
    const _bstr_t& category = m_Categories[static_cast<std::size_t>(std::min(row / CategorySize(), kCategories - 1))];
    return const_cast<BSTR>(
        static_cast<const wchar_t*>(category)); // the text itself, as the calls of the control take it
}

void Rows::Add(::_CProperties* properties, int row) {
    AddBeside(properties, row, m_Names[static_cast<std::size_t>(row)].GetBSTR());
}

void Rows::AddBeside(::_CProperties* properties, int row, BSTR name) {
    const auto at = static_cast<std::size_t>(row);
    BSTR key = nullptr;
    IDispatch* source = nullptr;
    omEditorType editor = omTextEditor;
    ComPtr<::_CProperty> added;
    Need(properties->Add(name, &m_Values[at], Category(row), &key, &source, VARIANT_TRUE, &editor, &added), "Add");
}

void Rows::AddLateBound(IDispatch* properties, DISPID add, int row) {
    const auto at = static_cast<std::size_t>(row);
    // In reverse order: category, value, name.
    VARIANT arguments[3];
    arguments[0].vt = VT_BSTR;
    arguments[0].bstrVal = Category(row);
    arguments[1] = m_Values[at];
    arguments[2].vt = VT_BSTR;
    arguments[2].bstrVal = m_Names[at].GetBSTR();
    DISPPARAMS passed = {arguments, nullptr, 3, 0};
    _variant_t added;
    Need(properties->Invoke(add, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &passed, &added, nullptr, nullptr),
         "Add by name");
}

} // namespace ormisk::bench
