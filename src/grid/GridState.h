#pragma once

#include "platform/FontDescription.h"

#include <wrl/client.h>

#include "ormisk.h"

#include <string>

namespace ormisk {

// The settings of a control, with the values of a new one. Colours are stored as the host gave them.
struct GridState {
    long activeView = omAlphabetic;
    std::wstring alphabeticTabCaption = L"Alphabetic";
    long appearance = om3d;
    long backColor = static_cast<long>(0x8000000F);
    long borderStyle = omNone;
    std::wstring categorizedTabCaption = L"Categorized";
    long categoryAppearance = om3d;
    long categoryBackColor = static_cast<long>(0x8000000F);
    bool categoryBold = true;
    long categoryForeColor = static_cast<long>(0x80000012);
    std::wstring categorySeparator = L"|";
    bool customSort = false;
    std::wstring defaultCategory = L"Misc";
    bool enabled = true;
    long foreColor = static_cast<long>(0x80000012);
    long grid = omGridDotted;
    long headers = omHeaders3d;
    long highlightBackColor = static_cast<long>(0x8000000D);
    long highlightForeColor = static_cast<long>(0x8000000E);
    float indentation = 10.0F; // pixels
    long inspectionDepth = 1;
    long lineColor = static_cast<long>(0x80000010);
    bool lockRefresh = false; // not persistent
    std::wstring nameCaption = L"Property";
    long pictureLayout = omPictureCentered;
    long propertyBackColor = static_cast<long>(0x80000005);
    long propertyForeColor = static_cast<long>(0x80000012);
    bool readOnly = false;
    long readOnlyPropertyColor = static_cast<long>(0x80000011);
    long recordsetToolbar = omAutomatic;
    bool showDescription = true;
    bool showTabs = true;
    bool showToolTip = true;
    bool sorted = false;
    bool sortOnHeaderClick = true;
    long sortOrder = omAscending;
    long treeStyle = omPlusMinusText;
    bool unicode = false;
    std::wstring valueCaption = L"Value";

    // The background picture of the rows and the control's own copy of its font.
    Microsoft::WRL::ComPtr<IPictureDisp> picture;
    FontDescription font;
};

} // namespace ormisk
