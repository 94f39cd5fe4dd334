#pragma once

#include <windows.h>

#include <ormisk.h>

#include <string>

namespace ormisk {

class CProperty;

// What of a property can change.
enum class Attribute {
    Name,
    Value,
    Visible,
    Picture,
    Bold,
    Italic,
    BackColor,
    ForeColor,
    Appearance,
    ReadOnly,
    Unicode,
    Help,
    Format,
    CustomDraw,
    HelpFile,
    HelpContext,
    PictureMaskColor
};

// What a property asks of the control that shows it, and the reports that the control hears. Any of the reports may
// call into the host, which may change the model before it returns.
class PropertyOwner {
public:
    // Colours of properties that have none of their own.
    virtual OLE_COLOR PropertyBackColor() const = 0;
    virtual OLE_COLOR PropertyForeColor() const = 0;
    // The control's own parameter of this name for this editor, "" when it has none.
    virtual std::wstring EditorParam(omEditorType type, const std::wstring& name) const = 0;

    virtual void PropertyChangedEx(CProperty& property, Attribute attribute) = 0;

    virtual void OnPropertyAdded(CProperty& property, CProperty* parent) = 0;
    // The property is out of the collection already.
    virtual void OnPropertyDeleted(CProperty& property) = 0;
    virtual void OnPropertiesCleared() = 0;

    // The control as an object, to know it among the values of its own rows.
    virtual const IUnknown* Control() const { return nullptr; }

protected:
    ~PropertyOwner() = default;
};

} // namespace ormisk
