#include "grid/ValueStore.h"

#include "grid/PaintPrimitives.h"
#include "platform/FontDescription.h"

#include <shlwapi.h>

namespace ormisk {

namespace {

bool SamePicture(const VARIANT& a, const VARIANT& b) {
    _variant_t handleOfA;
    _variant_t handleOfB;
    return SUCCEEDED(ResolveDefault(a, handleOfA)) && SUCCEEDED(ResolveDefault(b, handleOfB)) &&
           CompareValues(handleOfA, handleOfB) == Comparison::Equal;
}

} // namespace

bool ValuesEqual(const VARIANT& a, const VARIANT& b) {
    if (HoldsObject(a) != HoldsObject(b))
        return false;
    if (!HoldsObject(a))
        return CompareValues(a, b) == Comparison::Equal;
    // They are asked, and may do anything, also to whoever has them as a value.
    const ComPtr<IUnknown> first(ObjectOf(a));
    const ComPtr<IUnknown> second(ObjectOf(b));
    if (Query<IFont>(first) && Query<IFont>(second))
        return DescribeFont(first.Get()) == DescribeFont(second.Get());
    if (Query<IPicture>(first) && Query<IPicture>(second))
        return SamePicture(_variant_t(a), _variant_t(b));
    return false;
}

ComPtr<IFontDisp> CopyFont(IUnknown* font) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    wchar_t name[] = L"Arial";
    description.lpstrName = name;
    description.cySize.int64 = 80000;
    description.sWeight = FW_NORMAL;
    ComPtr<IFontDisp> copy;
    Check(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(copy.GetAddressOf())));
    ApplyFont(DescribeFont(font), copy.Get());
    return copy;
}

ComPtr<IPictureDisp> LoadPictureFile(const std::wstring& path) {
    // Not every system has the call that does both.
    ComPtr<IStream> file;
    ComPtr<IPictureDisp> picture;
    if (FAILED(SHCreateStreamOnFileW(path.c_str(), STGM_READ, file.GetAddressOf())) ||
        FAILED(
            OleLoadPicture(file.Get(), 0, FALSE, IID_IPictureDisp, reinterpret_cast<void**>(picture.GetAddressOf()))) ||
        PictureType(picture.Get()) <= PICTYPE_NONE)
        return nullptr;
    return picture;
}

} // namespace ormisk
