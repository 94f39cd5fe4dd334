#include "grid/PropertyTable.h"

#include "automation/Error.h"
#include "grid/PaintPrimitives.h"
#include "model/NumberText.h"
#include "tree/CNode.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr long kButtonFace = static_cast<long>(0x8000000F);

// True when anything but blanks is left.
bool Trim(PropertyValue& value) {
    auto& text = std::get<std::wstring>(value);
    text = std::wstring(TrimBlanks(text));
    return !text.empty();
}

} // namespace

PropertyValue PropertyEntry::Read(const GridState& state) const {
    return std::visit([&](auto member) { return PropertyValue(state.*member); }, field);
}

void PropertyEntry::Write(GridState& state, PropertyValue value) const {
    std::visit(
        [&](auto member) {
            using T = std::remove_reference_t<decltype(state.*member)>;
            state.*member = std::get<T>(std::move(value));
        },
        field);
}

void checks::Caption(PropertyValue& value) {
    if (!Trim(value))
        Raise(ErrorCode::InvalidPropertyValue);
}

void checks::Separator(PropertyValue& value) {
    if (!Trim(value))
        Raise(ErrorNumber(ErrorCode::InvalidPropertyValue),
              std::wstring(L"CategorySeparator : ") + ErrorText(ErrorCode::InvalidPropertyValue), kLibraryTitle, L"16");
}

void checks::Indentation(PropertyValue& value) {
    if (!(std::get<float>(value) >= 0)) // also what is no number
        Raise(ErrorCode::InvalidPropertyValue, L"Indentation : ");
}

void checks::Depth(PropertyValue& value) { value = std::max(std::get<long>(value), 1L); }

void checks::Picture(PropertyValue& value) {
    auto& picture = std::get<ComPtr<IPictureDisp>>(value);
    if (PictureType(picture.Get()) == PICTYPE_NONE)
        picture = nullptr;
}

void marks::Appearance(CNode& category, const GridState& state) {
    category.SetAppearance(static_cast<omAppearance>(state.categoryAppearance));
}

void marks::BackColor(CNode& category, const GridState& state) {
    category.SetBackColor(
        static_cast<OLE_COLOR>(state.categoryBackColor == kButtonFace ? -1 : state.categoryBackColor));
}

void marks::Bold(CNode& category, const GridState& state) { category.SetBold(state.categoryBold); }

void marks::ForeColor(CNode& category, const GridState& state) {
    category.SetForeColor(static_cast<OLE_COLOR>(state.categoryForeColor));
}

} // namespace ormisk
