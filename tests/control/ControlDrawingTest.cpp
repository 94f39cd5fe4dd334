#include "ControlHost.h"

namespace ormisk {
namespace {

using test::ControlInHost;
using test::Host;
using test::MakeBox;

// The box draws its left half red and the rest blue; a pixel of the picture tells where it was put.
class Canvas {
public:
    Canvas() : m_Dc(CreateCompatibleDC(nullptr)), m_Bitmap(CreateBitmap(200, 200, 1, 32, nullptr)) {
        m_Old = SelectObject(m_Dc, m_Bitmap);
        PatBlt(m_Dc, 0, 0, 200, 200, WHITENESS);
    }
    ~Canvas() {
        SelectObject(m_Dc, m_Old);
        DeleteObject(m_Bitmap);
        DeleteDC(m_Dc);
    }
    operator HDC() const { return m_Dc; }

private:
    HDC m_Dc;
    HBITMAP m_Bitmap;
    HGDIOBJ m_Old;
};

constexpr COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255), kWhite = RGB(255, 255, 255);

TEST_F(ControlInHost, ADrawingLandsOutsideTheBoundsOrUnscaledOrLeavesTheContextChanged) {
    Host host;
    auto box = MakeBox();
    Query<IOleObject>(box)->SetClientSite(&host);
    auto view = Query<IViewObject>(box);
    const auto draw = [&](HDC dc, RECTL bounds, const RECTL* window = nullptr) {
        EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, window, nullptr, 0), S_OK);
    };
    const auto expectPicture = [](HDC dc) { // at 20,40 to 120,140
        EXPECT_EQ(GetPixel(dc, 25, 45), kRed);
        EXPECT_EQ(GetPixel(dc, 65, 135), kRed);
        EXPECT_EQ(GetPixel(dc, 75, 45), kBlue);
        EXPECT_EQ(GetPixel(dc, 115, 135), kBlue);
        EXPECT_EQ(GetPixel(dc, 15, 45), kWhite);
        EXPECT_EQ(GetPixel(dc, 125, 135), kWhite);
        EXPECT_EQ(GetPixel(dc, 75, 145), kWhite);
    };
    {
        SCOPED_TRACE("pixels");
        Canvas canvas;
        draw(canvas, {20, 40, 120, 140});
        expectPicture(canvas);
        EXPECT_EQ(GetMapMode(canvas), MM_TEXT);
        POINT origin{9, 9};
        GetViewportOrgEx(canvas, &origin);
        EXPECT_EQ(origin.x, 0);
    }
    {
        SCOPED_TRACE("mapped context");
        Canvas canvas;
        SetMapMode(canvas, MM_ANISOTROPIC);
        SetWindowExtEx(canvas, 400, 400, nullptr);
        SetViewportExtEx(canvas, 200, 200, nullptr);
        draw(canvas, {40, 80, 240, 280});
        SetMapMode(canvas, MM_TEXT);
        expectPicture(canvas);
    }
    {
        SCOPED_TRACE("old metafile");
        const HDC record = CreateMetaFileW(nullptr);
        const RECTL window{0, 0, 1000, 1000};
        SetMapMode(record, MM_ANISOTROPIC);
        SetWindowOrgEx(record, 0, 0, nullptr);
        SetWindowExtEx(record, 1000, 1000, nullptr);
        draw(record, {100, 200, 600, 700}, &window);
        const HMETAFILE file = CloseMetaFile(record);
        Canvas canvas;
        SetMapMode(canvas, MM_ANISOTROPIC);
        SetViewportExtEx(canvas, 200, 200, nullptr);
        PlayMetaFile(canvas, file);
        SetMapMode(canvas, MM_TEXT);
        expectPicture(canvas);
        DeleteMetaFile(file);
    }
    const RECTL bounds{0, 0, 9, 9};
    Canvas canvas;
    EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, canvas, &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, 3, nullptr, nullptr, nullptr, canvas, &bounds, nullptr, nullptr, 0),
              DV_E_LINDEX);
    Query<IOleObject>(box)->SetClientSite(nullptr);
}

} // namespace
} // namespace ormisk
