#include "GridContainer.h"

namespace ormisk::test {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255), kNone = Picture::kUntouched;

// The box draws its left half red and the rest blue; a pixel of the picture tells where it was put.
TEST_F(GridTest, ADrawingLandsOutsideTheBoundsOrUnscaledOrLeavesTheContextChanged) {
    SitedBox box;
    const auto draw = [&](HDC dc, RECTL bounds, const RECTL* window = nullptr) {
        EXPECT_EQ(box->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, window, nullptr, 0), S_OK);
    };
    const std::pair<const char*, std::function<void(HDC)>> contexts[] = {
        {"pixels",
         [&](HDC dc) {
             draw(dc, {20, 40, 120, 140});
             EXPECT_EQ(GetMapMode(dc), MM_TEXT);
             POINT origin{9, 9};
             GetViewportOrgEx(dc, &origin);
             EXPECT_EQ(origin.x, 0);
         }},
        {"mapped context",
         [&](HDC dc) {
             SetMapMode(dc, MM_ANISOTROPIC);
             SetWindowExtEx(dc, 400, 400, nullptr);
             SetViewportExtEx(dc, 200, 200, nullptr);
             draw(dc, {40, 80, 240, 280});
         }},
        {"old metafile", [&](HDC dc) {
             const HDC record = CreateMetaFileW(nullptr);
             const RECTL window{0, 0, 1000, 1000};
             SetMapMode(record, MM_ANISOTROPIC);
             SetWindowOrgEx(record, 0, 0, nullptr);
             SetWindowExtEx(record, 1000, 1000, nullptr);
             draw(record, {100, 200, 600, 700}, &window);
             const HMETAFILE file = CloseMetaFile(record);
             SetMapMode(dc, MM_ANISOTROPIC);
             SetViewportExtEx(dc, 200, 200, nullptr);
             PlayMetaFile(dc, file);
             DeleteMetaFile(file);
         }}};
    for (const auto& [name, drawInto] : contexts) {
        SCOPED_TRACE(name);
        const Picture picture({200, 200}, drawInto); // at 20,40 to 120,140
        const std::pair<POINT, COLORREF> pixels[] = {{{25, 45}, kRed},    {{65, 135}, kRed}, {{75, 45}, kBlue},
                                                     {{115, 135}, kBlue}, {{15, 45}, kNone}, {{125, 135}, kNone},
                                                     {{75, 145}, kNone}};
        for (const auto& [at, color] : pixels)
            EXPECT_EQ(picture.At(at.x, at.y), color) << at.x << "," << at.y;
    }
    const RECTL bounds{0, 0, 9, 9};
    const MemoryDC dc(nullptr);
    for (const auto& [aspect, index, failure] :
         {std::tuple{DVASPECT_ICON, -1L, DV_E_DVASPECT}, {DVASPECT_CONTENT, 3L, DV_E_LINDEX}})
        EXPECT_EQ(box->Draw(aspect, index, nullptr, nullptr, nullptr, dc.Get(), &bounds, nullptr, nullptr, 0), failure);
}

} // namespace
} // namespace ormisk::test
