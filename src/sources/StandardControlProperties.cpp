#include "sources/StandardControlProperties.h"

#include "sources/MemberEditor.h"

#include <cwchar>

namespace ormisk {

namespace {

constexpr const wchar_t* kMousePointers[] = {L"0 - Default",
                                             L"1 - Arrow",
                                             L"2 - Cross",
                                             L"3 - I-Beam",
                                             L"4 - Icon",
                                             L"5 - Size",
                                             L"6 - Size NE SW",
                                             L"7 - Size NS",
                                             L"8 - Size NW SE",
                                             L"9 - Size WE",
                                             L"10 - Up Arrow",
                                             L"11 - Hourglass",
                                             L"12 - No Drop",
                                             L"13- Arrow and Hourglass",
                                             L"14 - Arrow and Question",
                                             L"15 - Size All",
                                             L"99 - Custom"};
constexpr const wchar_t* kManualOrAutomatic[] = {L"0 - Manual", L"1 - Automatic"};
constexpr const wchar_t* kDropModes[] = {L"0 - None", L"1 - Manual", L"2 - Automatic"};
constexpr const wchar_t* kAlignments[] = {L"0 - None", L"1 - Align To Top", L"2 - Align To Bottom",
                                          L"3 - Align To Left", L"4 - Align To Right"};
constexpr const wchar_t* kScaleModes[] = {L"0 - User",      L"1 - Twip", L"2 - Point",      L"3 - Pixel",
                                          L"4 - Character", L"5 - Inch", L"6 - Millimeter", L"7 - Centimeter"};

constexpr StandardProperty kTable[] = {
    {.name = L"Cancel",
     .category = L"Behavior",
     .editorType = omBooleanEditor,
     .help = L"Indicates where a command button is a Cancel button on a form.",
     .readOnly = true},
    {.name = L"CausesValidation",
     .category = L"Behavior",
     .editorType = omBooleanEditor,
     .help = L"Returns/sets whether validation occurs on the control which lost focus."},
    {.name = L"Default",
     .category = L"Behavior",
     .editorType = omBooleanEditor,
     .help = L"Determines which CommandButton control is the default command button on a form.",
     .readOnly = true},
    {.name = L"DragIcon",
     .category = L"Behavior",
     .editorType = omPictureEditor,
     .help = L"Returns/sets the icon to be displayed as the pointer in a drag-and-drop operation.",
     .isObject = true,
     .picture = true},
    {.name = L"MouseIcon",
     .category = L"Behavior",
     .editorType = omPictureEditor,
     .help = L"Sets a custom mouse icon.",
     .picture = true},
    {.name = L"MousePointer",
     .category = L"Behavior",
     .editorType = omListEditor,
     .help = L"Returns/sets the type of mouse pointer displayed when over part of an object.",
     .items = kMousePointers},
    {.name = L"DragMode",
     .category = L"Behavior",
     .editorType = omListEditor,
     .help = L"Returns/sets a value that determines whether manual or automatic drag mode is used.",
     .items = kManualOrAutomatic},
    {.name = L"OLEDragMode",
     .category = L"Behavior",
     .editorType = omListEditor,
     .help = L"Returns/Sets whether this object can act as an OLE drag/drop source, and whether this process is "
             L"started automatically or under programmatic control.",
     .items = kManualOrAutomatic},
    {.name = L"OLEDropMode",
     .category = L"Behavior",
     .editorType = omListEditor,
     .help = L"Returns/Sets whether this object can act as an OLE drop target.",
     .items = kDropModes},
    {.name = L"Enabled",
     .category = L"Behavior",
     .editorType = omBooleanEditor,
     .help = L"Returns/sets a value that determines whether an object can respond to user-generated events."},
    {.name = L"Visible",
     .category = L"Behavior",
     .editorType = omBooleanEditor,
     .help = L"Returns/sets a value that determines whether an object is visible or hidden.",
     .testsWriting = false},
    {.name = L"TabIndex",
     .category = L"Behavior",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the tab order of an object within its parent form."},
    {.name = L"HelpContextId",
     .category = L"",
     .editorType = omNumberEditor,
     .help = L"Specifies the default Help file context ID for an object."},
    {.name = L"Index",
     .category = L"Misc",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the number identifying a control in a control array."},
    {.name = L"IntegralHeight",
     .category = L"Misc",
     .editorType = omNumberEditor,
     .help = L"Returns/Sets a value indicating whether the control displays partial items."},
    {.name = L"WhatsThisHelpId",
     .category = L"Misc",
     .editorType = omNumberEditor,
     .help = L"Returns/sets an associated context number for an object."},
    {.name = L"ToolTipText",
     .category = L"Misc",
     .editorType = omTextEditor,
     .help = L"Returns/sets the text displayed when the mouse is paused over the control."},
    {.name = L"Left",
     .category = L"Position",
     .editorType = omNumberEditor,
     .help =
         L"Returns/sets the distance between the internal left edge of an object and the left edge of its container."},
    {.name = L"Top",
     .category = L"Position",
     .editorType = omNumberEditor,
     .help =
         L"Returns/sets the distance between the internal top edge of an object and the top edge of its container."},
    {.name = L"Width",
     .category = L"Position",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the width of an object."},
    {.name = L"Height",
     .category = L"Position",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the height of an object."},
    {.name = L"Align",
     .category = L"Position",
     .editorType = omListEditor,
     .help = L"Returns/sets a value that determines where an object is displayed on a form.",
     .items = kAlignments,
     .itemType = VT_I4},
    {.name = L"ScaleMode",
     .category = L"Scale",
     .editorType = omListEditor,
     .help = L"Defines the coordinate system for a Form, PictureBox, or Printer.",
     .items = kScaleModes},
    {.name = L"ScaleLeft",
     .category = L"Scale",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the horizontal coordinates for the left edges of an object."},
    {.name = L"ScaleTop",
     .category = L"Scale",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the vertical coordinates for the top edges of an object."},
    {.name = L"ScaleHeight",
     .category = L"Scale",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the number of units for the vertical measurement of an object's interior."},
    {.name = L"ScaleWidth",
     .category = L"Scale",
     .editorType = omNumberEditor,
     .help = L"Returns/sets the number of units for the horizontal measurement of an object's interior."},
};

} // namespace

std::span<const StandardProperty> StandardControlProperties() { return kTable; }

void ApplyStandardProperty(const StandardProperty& property, CProperty& row) {
    row.InitHelp(property.help);
    if (property.readOnly)
        row.InitReadOnly();
    if (property.picture)
        row.SetParam(kFilterParam, kPictureFilter);
    for (const wchar_t* text : property.items)
        IgnoringFailures([&] {
            _variant_t value(std::wcstol(text, nullptr, 10));
            value.ChangeType(property.itemType);
            row.ListItems().AddItem(text, value);
        });
}

} // namespace ormisk
