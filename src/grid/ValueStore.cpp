#include "grid/ValueStore.h"

#include "grid/PaintPrimitives.h"
#include "platform/FontDescription.h"

#include <shlwapi.h>

namespace ormisk {

namespace {

// Raises when the object has none.
_variant_t DefaultMember(IUnknown* object) {
    const ComPtr<IDispatch> dispatch = Query<IDispatch>(object);
    CheckPointer(dispatch.Get());
    _variant_t result;
    DISPPARAMS none{};
    Check(dispatch->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none,
                           &result, nullptr, nullptr));
    return result;
}

bool SamePicture(IUnknown* a, IUnknown* b) {
    bool same = false;
    IgnoringFailures([&] { same = CompareValues(DefaultMember(a), DefaultMember(b)) == Comparison::Equal; });
    return same;
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
        return SamePicture(first.Get(), second.Get());
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
