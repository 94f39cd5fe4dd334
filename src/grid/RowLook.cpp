#include "grid/RowLook.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"

#include <algorithm>

#include <olectl.h>

namespace ormisk {

namespace {

// Names of categories that come from the library itself, in plain form.
constexpr const wchar_t* kBuiltInCategories[] = {L"Misc", L"Nil",  L"Font", L"Position", L"Appearance", L"Behavior",
                                                 L"Data", L"List", L"Text", L"Scale",    L"DDE"};

} // namespace

const std::wstring& RowLook::CellText(const CNode& node, CProperty* property, bool nameCell) {
    const auto readValue = [&] {
        if (property)
            property->FormatText(m_Text, kMostShown);
        else
            m_Text = TextOf(node.Value());
    };
    if (nameCell) {
        m_Text.assign(node.Name(), 0, kMostShown);
        if (!property && ByteExpanded(property) && std::ranges::count(kBuiltInCategories, m_Text) > 0)
            m_Text = ExpandText(m_Text);
    } else if (!IgnoringFailures(readValue)) {
        m_Text.clear();
    }
    return m_Text;
}

bool RowLook::ByteExpanded(const CProperty* property) const {
    return property ? property->ByteExpanded() : m_Grid.m_State.unicode;
}

HFONT RowLook::FontOf(const CNode& node, const wchar_t* key) {
    const FontDescription& font = m_Grid.m_State.font;
    if (node.Bold() == font.Bold && node.Italic() == font.Italic)
        return m_Grid.m_ResourceMgr.GetFont(font, L"TreeFont");
    m_NodeFont = font;
    m_NodeFont.Bold = node.Bold();
    m_NodeFont.Italic = node.Italic();
    return m_Grid.m_ResourceMgr.GetFont(m_NodeFont, key);
}

// A row's colour of -1 is not set.
Color RowLook::BackColor(const CNode& node, bool selected, long unset) const {
    const bool own = !selected && node.BackColor() != static_cast<Color>(-1);
    return TranslateColor(own ? node.BackColor()
                              : static_cast<Color>(selected ? m_Grid.m_State.highlightBackColor : unset));
}

// Around an open editor a selected row does not shine through.
Color RowLook::CellColor(const CNode& node, const CProperty* property, bool nameCell, bool selected) const {
    const long plain = m_Grid.m_State.propertyBackColor;
    if (selected && !nameCell && property && m_Grid.m_Session.IsEditorOpen())
        return TranslateColor(static_cast<Color>(plain));
    return BackColor(node, selected, plain);
}

// The control's text colour stands in when the node's comes out as -1 after translation.
Color RowLook::ForeColor(const CNode& node, bool selected) const {
    const GridState& state = m_Grid.m_State;
    if (selected)
        return TextColor(state, state.highlightForeColor);
    const Color color = TextColor(state, node.ForeColor());
    return color == static_cast<Color>(-1) ? TextColor(state, state.foreColor) : color;
}

// A read-only row keeps its colour also when it is selected.
Color RowLook::Ink(const CProperty* property, Color foreColor) const {
    const GridState& state = m_Grid.m_State;
    const bool readOnly = property && (property->IsReadOnly() || state.readOnly);
    return readOnly ? TextColor(state, state.readOnlyPropertyColor) : foreColor;
}

ComPtr<IPicture> RowLook::PictureOf(const CNode& node) const {
    const ComPtr<IPicture> picture = Query<IPicture>(node.Picture());
    return PictureType(picture.Get()) == PICTYPE_NONE ? nullptr : picture;
}

std::optional<Size> RowLook::PictureSize(const CNode& node) const {
    const ComPtr<IPicture> picture = PictureOf(node);
    return picture ? std::optional(PicturePixels(picture.Get())) : std::nullopt;
}

} // namespace ormisk
