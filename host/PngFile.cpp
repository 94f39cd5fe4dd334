#include "PngFile.h"

#include "ComObject.h"
#include "Failure.h"

#include <wincodec.h>

#include <algorithm>
#include <vector>

namespace ormisk {
namespace {

// A picture as a file holds it: a byte a point when there are few colours, else three.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<WICColor> palette; // sorted; empty when the points hold the colours themselves
    std::vector<BYTE> points;

    int Stride() const { return static_cast<int>(points.size()) / height; }
};

constexpr std::size_t kMostPaletteColors = 256;
constexpr WICColor kOpaque = 0xFF000000;

std::vector<WICColor> ColorsOf(HBITMAP bitmap, int width, int height) {
    std::vector<WICColor> colors(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    BITMAPINFO format = {};
    format.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC screen = GetDC(nullptr);
    const int lines = GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), colors.data(), &format, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    CheckLast(lines == height, L"A picture cannot be read");
    for (WICColor& color : colors)
        color |= kOpaque;
    return colors;
}

Image Read(HBITMAP bitmap) {
    BITMAP header = {};
    GetObjectW(bitmap, sizeof header, &header);
    Image image = {header.bmWidth, header.bmHeight, {}, {}};
    const std::vector<WICColor> colors = ColorsOf(bitmap, image.width, image.height);
    std::vector<WICColor> distinct = colors;
    std::sort(distinct.begin(), distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    if (distinct.size() <= kMostPaletteColors)
        image.palette = distinct;
    for (const WICColor color : colors) {
        if (!image.palette.empty()) {
            const auto found = std::lower_bound(distinct.begin(), distinct.end(), color);
            image.points.push_back(static_cast<BYTE>(found - distinct.begin()));
        } else {
            for (int shift = 0; shift < 24; shift += 8)
                image.points.push_back(static_cast<BYTE>(color >> shift));
        }
    }
    return image;
}

} // namespace

void SavePng(HBITMAP bitmap, const std::wstring& path) {
    if (path.empty())
        throw Failure{L"The picture's file has no name"};
    const std::wstring trouble = path + L" cannot be written";
    const auto check = [&](HRESULT result) { Check(result, trouble.c_str()); };
    Image image = Read(bitmap);
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    ComPtr<IWICPalette> palette;
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory)));
    check(factory->CreateStream(&stream));
    check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    check(encoder->CreateNewFrame(&frame, nullptr));
    check(frame->Initialize(nullptr));
    check(frame->SetSize(static_cast<UINT>(image.width), static_cast<UINT>(image.height)));
    WICPixelFormatGUID format = image.palette.empty() ? GUID_WICPixelFormat24bppBGR : GUID_WICPixelFormat8bppIndexed;
    check(frame->SetPixelFormat(&format));
    if (!image.palette.empty()) {
        check(factory->CreatePalette(&palette));
        check(palette->InitializeCustom(image.palette.data(), static_cast<UINT>(image.palette.size())));
        check(frame->SetPalette(palette.Get()));
    }
    check(frame->WritePixels(static_cast<UINT>(image.height), static_cast<UINT>(image.Stride()),
                             static_cast<UINT>(image.points.size()), image.points.data()));
    check(frame->Commit());
    check(encoder->Commit());
}

} // namespace ormisk
