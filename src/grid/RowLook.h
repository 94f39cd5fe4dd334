#pragma once

#include "automation/ComPtr.h"
#include "platform/Color.h"
#include "platform/FontDescription.h"
#include "win/Geometry.h"

#include <ocidl.h>
#include <optional>
#include <string>

namespace ormisk {

class CNode;
class CProperty;
class Grid;

// What the cells of a row look like, whoever shows, measures or tells them. The property is null for a category.
class RowLook {
public:
    explicit RowLook(Grid& grid) : m_Grid(grid) {}

    // The text of a cell; good until the next one is asked for. A value without a text, such as Null, has an empty one.
    const std::wstring& CellText(const CNode& node, CProperty* property, bool nameCell);
    bool ByteExpanded(const CProperty* property) const; // the form of the texts

    // The font of a row's texts; owned by the resource cache.
    HFONT FontOf(const CNode& node, const wchar_t* key = L"NodeFont");

    // RGB values. `unset` is for a row without a back colour of its own.
    Color BackColor(const CNode& node, bool selected, long unset) const;
    Color CellColor(const CNode& node, const CProperty* property, bool nameCell, bool selected) const;
    Color ForeColor(const CNode& node, bool selected) const;
    Color Ink(const CProperty* property, Color foreColor) const; // gray for what cannot be edited

    // The picture of a row, and its size in pixels; a picture of no type counts as none.
    ComPtr<IPicture> PictureOf(const CNode& node) const;
    std::optional<Size> PictureSize(const CNode& node) const;

private:
    Grid& m_Grid;
    // Kept so that asking allocates nothing a row.
    std::wstring m_Text;
    FontDescription m_NodeFont;
};

} // namespace ormisk
