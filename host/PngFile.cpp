#include "PngFile.h"

#include "ComObject.h"
#include "Failure.h"

#include <wincodec.h>

namespace ormisk {

void SavePng(HBITMAP bitmap, const std::wstring& path) {
    const std::wstring trouble = path + L" cannot be written";
    const auto check = [&](HRESULT result) { Check(result, trouble.c_str()); };
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmap> source;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory)));
    check(factory->CreateBitmapFromHBITMAP(bitmap, nullptr, WICBitmapIgnoreAlpha, &source));
    check(factory->CreateStream(&stream));
    check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    check(encoder->CreateNewFrame(&frame, nullptr));
    check(frame->Initialize(nullptr));
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    check(frame->SetPixelFormat(&format));
    check(frame->WriteSource(source.Get(), nullptr));
    check(frame->Commit());
    check(encoder->Commit());
}

} // namespace ormisk
