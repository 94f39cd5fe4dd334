#pragma once

#include "model/CProperty.h"

#include <span>

namespace ormisk {

// A property that a form gives to the controls on it, with what its row gets.
struct StandardProperty {
    const wchar_t* name;
    const wchar_t* category;
    omEditorType editorType;
    const wchar_t* help;
    bool isObject = false; // read as an object, which no other property may be
    bool readOnly = false;
    bool testsWriting = true;
    bool picture = false;                       // offers picture files
    std::span<const wchar_t* const> items = {}; // the number in front is the value
    VARTYPE itemType = VT_I2;
};

std::span<const StandardProperty> StandardControlProperties();

// Help, list items and what else the table says, on the row of the property.
void ApplyStandardProperty(const StandardProperty& property, CProperty& row);

} // namespace ormisk
