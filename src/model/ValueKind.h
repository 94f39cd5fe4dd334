#pragma once

#include "automation/Value.h"

#include <ormisk.h>

#include <optional>

namespace ormisk {

class CProperty;

// What a type of editor makes of the values in its rows, whichever object edits them. What a type leaves out it does
// not do: every value suits it, and is shown, edited and stored as it is.
struct ValueKind {
    omEditorType type = omCustomEditor;
    // Of a value that refers to nobody's memory and is not Empty, Null or missing.
    bool (*accepts)(const VARIANT& value) = nullptr;

    // The text of the value column: of Empty, of an object or Nothing, and in place of a formatted value.
    std::wstring (*emptyText)(const CProperty& property) = nullptr;
    std::wstring (*objectText)(CProperty& property, IUnknown* object) = nullptr;
    void (*plainText)(CProperty& property, std::size_t longest, std::wstring& text) = nullptr;
    // Makes the list items of a row that has always the same.
    void (*fillList)(CProperty& property) = nullptr;

    // What an editor gets, and what the row gets from it: nothing when there is no change. `typed`: the user worked on
    // the text.
    _variant_t (*load)(CProperty& property) = nullptr;
    // Whether the value that the editor gives is the one that the row has, in whatever form; without it, equal values.
    bool (*same)(CProperty& property, const VARIANT& edited) = nullptr;
    std::optional<_variant_t> (*store)(const CProperty& property, const VARIANT& edited, bool typed) = nullptr;
};

const ValueKind& KindOf(omEditorType type);

// Whether an editor of this type can edit the value. Empty, Null and missing always can.
bool IsValueValidForEditor(const VARIANT& given, omEditorType type);

} // namespace ormisk
