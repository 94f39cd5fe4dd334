#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string>

namespace ormisk {

// Draws for a script, which has no drawing calls of its own, into the context that an event gives it. Rectangles are
// pixels of the context's coordinates, colours RGB values or system colours as a control's properties hold them. Throws
// a Failure for a context that is none.
void FillPart(HDC context, const RECT& part, OLE_COLOR color);

// One line of text in the context's font, at the left and in the middle of the height, with dots when it does not fit.
void WritePart(HDC context, const RECT& part, const std::wstring& text, OLE_COLOR color);

} // namespace ormisk
