// Drawing resources, text output, fonts, splitter and the About window.

#include "Eventually.h"
#include "GridContainer.h"
#include "InDialog.h"

#include "platform/About.h"
#include "platform/FontDescription.h"
#include "platform/ResourceMgr.h"
#include "platform/Splitter.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"

#include <optional>

namespace ormisk::test {

namespace {

constexpr std::uint32_t kCheckers[] = {0xAAAA5555, 0xAAAA5555, 0xAAAA5555, 0xAAAA5555};

FontDescription Arial(double size) {
    FontDescription font;
    font.Name = L"Arial";
    font.Size = size;
    font.Weight = 400;
    return font;
}

LOGFONTW Attributes(HFONT font) {
    LOGFONTW attributes{};
    GetObjectW(font, sizeof attributes, &attributes);
    return attributes;
}

constexpr SIZE kSize{120, 40};

Picture Drawn(const std::function<void(HDC, RECT&)>& draw) {
    return Picture(kSize, [&](HDC dc) {
        RECT rc{2, 3, kSize.cx - 2, kSize.cy - 3};
        SetBkMode(dc, TRANSPARENT);
        draw(dc, rc);
    });
}

constexpr UINT kCell = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;

Picture Drawn(std::wstring_view text, bool unicode, UINT format = kCell, int charset = 0) {
    return Drawn([&](HDC dc, RECT& rc) { DrawTextMultiLang(dc, text, rc, format, unicode, charset); });
}

Picture DrawnBySystem(const wchar_t* text, UINT format = kCell) {
    return Drawn([&](HDC dc, RECT& rc) { DrawTextW(dc, text, -1, &rc, format); });
}

} // namespace

TEST(ResourceMgr, EqualAttributesKeepTheObjectAndOthersReplaceIt) {
    CResourceMgr resources;
    const HBRUSH brush = resources.GetBrush(0x112233, L"BackColor");
    const HPEN pen = resources.GetPen(0x445566, L"LineColor");
    const HFONT font = resources.GetFont(Arial(9), L"TreeFont");
    const HBRUSH pattern = resources.GetPatternBrush(kCheckers, L"GridBrush");
    ASSERT_TRUE(brush && pen && font && pattern);
    const unsigned handles = LiveGdiHandles();
    EXPECT_EQ(resources.GetBrush(0x112233, L"BackColor"), brush);
    EXPECT_EQ(resources.GetPen(0x445566, L"LineColor"), pen);
    EXPECT_EQ(resources.GetFont(Arial(9), L"TreeFont"), font);
    EXPECT_EQ(resources.GetPatternBrush(kCheckers, L"GridBrush"), pattern);

    LOGBRUSH brushNow{};
    GetObjectW(resources.GetBrush(0x332211, L"BackColor"), sizeof brushNow, &brushNow);
    EXPECT_EQ(brushNow.lbColor, 0x332211u);
    LOGPEN penNow{};
    GetObjectW(resources.GetPen(0x445566, L"LineColor", PS_DOT), sizeof penNow, &penNow);
    EXPECT_EQ(penNow.lopnStyle, static_cast<UINT>(PS_DOT));
    EXPECT_EQ(penNow.lopnColor, 0x445566u);
    FontDescription italic = Arial(9);
    italic.Italic = true;
    EXPECT_TRUE(Attributes(resources.GetFont(italic, L"TreeFont")).lfItalic);
    std::array<std::uint32_t, 4> lines{0x0000FFFF, 0x0000FFFF, 0x0000FFFF, 0x0000FFFF};
    EXPECT_TRUE(resources.GetPatternBrush(lines, L"GridBrush"));
    EXPECT_EQ(LiveGdiHandles(), handles) << "the replaced objects are gone";
}

TEST(ResourceMgr, KindsAreApartAndRemovedOrDroppedObjectsAreFreed) {
    const unsigned before = LiveGdiHandles();
    {
        CResourceMgr resources;
        EXPECT_NE(static_cast<HGDIOBJ>(resources.GetPen(1, L"ArrowColor")),
                  static_cast<HGDIOBJ>(resources.GetBrush(1, L"ArrowColor")));
        resources.GetFont(Arial(9), L"TreeFont");
        resources.GetPatternBrush(kCheckers, L"GridBrush");
        const unsigned filled = LiveGdiHandles();
        EXPECT_EQ(filled, before + 4);
        resources.RemoveBrush(L"absent");
        resources.RemoveBrush(L"ArrowColor");
        EXPECT_EQ(LiveGdiHandles(), filled - 1);
        EXPECT_TRUE(resources.GetPen(1, L"ArrowColor"));
        EXPECT_EQ(LiveGdiHandles(), filled - 1) << "the pen of that key stayed";
    }
    EXPECT_EQ(LiveGdiHandles(), before);
}

TEST(ResourceMgr, FontsRoundTheirSizeAndKnowOnlyBoldOrNot) {
    CResourceMgr resources;
    const LOGFONTW eight = Attributes(resources.GetFont(Arial(8), L"TreeFont"));
    EXPECT_EQ(Attributes(resources.GetFont(Arial(8.25), L"TreeFont")).lfHeight, eight.lfHeight);
    EXPECT_NE(Attributes(resources.GetFont(Arial(9), L"TreeFont")).lfHeight, eight.lfHeight);
    EXPECT_LT(eight.lfHeight, 0);
    EXPECT_STREQ(eight.lfFaceName, L"Arial");
    FontDescription font = Arial(8);
    font.Weight = 900;
    font.Underline = font.Strikethrough = true;
    font.Charset = RUSSIAN_CHARSET;
    LOGFONTW made = Attributes(resources.GetFont(font, L"TreeFont"));
    EXPECT_EQ(made.lfWeight, FW_NORMAL);
    EXPECT_TRUE(made.lfUnderline && made.lfStrikeOut);
    EXPECT_EQ(made.lfCharSet, RUSSIAN_CHARSET);
    font.Bold = true;
    EXPECT_EQ(Attributes(resources.GetFont(font, L"TreeFont")).lfWeight, FW_BOLD);
}

TEST(ResourceMgr, RefusedObjectGivesNoHandleAndTheNextAskSucceeds) {
    CResourceMgr resources;
    FontDescription endless = Arial(9);
    endless.Name.assign(33, L'x');
    EXPECT_FALSE(resources.GetFont(endless, L"TreeFont"));
    EXPECT_FALSE(resources.GetPatternBrush(BrushPattern(kCheckers).first(3), L"GridBrush")) << "too few bytes";
    EXPECT_TRUE(resources.GetFont(Arial(9), L"TreeFont"));
    EXPECT_TRUE(resources.GetPatternBrush(kCheckers, L"GridBrush"));
    EXPECT_FALSE(resources.GetFont(endless, L"TreeFont")) << "a known key loses its object";
    EXPECT_TRUE(resources.GetFont(Arial(9), L"TreeFont"));
}

TEST(FontDescription, ValuesGoToAFontObjectAndComeBack) {
    // A font object names the face that the system found for it, so only faces that are everywhere come back.
    const auto font = MakeFont(L"Symbol");
    Query<IFont>(font)->put_Charset(SYMBOL_CHARSET);
    Query<IFont>(font)->put_Size(CY{.int64 = 82500});
    const FontDescription described = DescribeFont(font.Get());
    EXPECT_EQ(described.Name, L"Symbol");
    EXPECT_DOUBLE_EQ(described.Size, 8.25);
    EXPECT_FALSE(described.Bold);
    EXPECT_EQ(described.Weight, 400);

    FontDescription wanted = Arial(12);
    wanted.Name = L"Tahoma";
    wanted.Italic = wanted.Underline = wanted.Strikethrough = true;
    ApplyFont(wanted, font.Get());
    EXPECT_EQ(DescribeFont(font.Get()), wanted);
    wanted.Bold = true;
    ApplyFont(wanted, font.Get());
    EXPECT_TRUE(DescribeFont(font.Get()).Bold) << "bold wins over a weight that says otherwise";
    EXPECT_EQ(DescribeFont(nullptr), FontDescription{});
}

TEST(TextOutput, PlainAndExpandedTextsAreShownAndMeasuredAsTheTextThatTheyStandFor) {
    EXPECT_EQ(Drawn(L"Caf\u00E9 & co", false), DrawnBySystem(L"Caf\u00E9 & co"));
    EXPECT_EQ(Drawn(L"&Tab", false, DT_SINGLELINE), DrawnBySystem(L"&Tab", DT_SINGLELINE));
    const wchar_t* const text = L"\u0416\u0443\u043A \u00E9\u0081\u2026 A";
    EXPECT_EQ(NarrowText(ExpandText(text)), text);
    std::wstring everyByte;
    for (wchar_t c = 0; c < 256; ++c)
        everyByte += static_cast<wchar_t>(c << 8 | c);
    EXPECT_EQ(NarrowText(ExpandText(everyByte)), everyByte);
    EXPECT_EQ(ExpandText(L"Ab"), std::wstring(L"A\0b\0", 4));

    EXPECT_EQ(Drawn(ExpandText(text), true), DrawnBySystem(text));
    EXPECT_NE(Drawn(ExpandText(text), true), Drawn(L"", true));
    const MemoryDC dc(nullptr);
    SIZE expected{};
    GetTextExtentPoint32W(dc.Get(), text, lstrlenW(text), &expected);
    const SIZE measured = MeasureText(dc.Get(), ExpandText(text), true);
    EXPECT_EQ(measured.cx, expected.cx);
    EXPECT_EQ(measured.cy, expected.cy);
    EXPECT_EQ(MeasureText(dc.Get(), L"Property", false).cx, MeasureText(dc.Get(), ExpandText(L"Property"), true).cx);
}

TEST(TextOutput, ForeignDoubleByteTextIsConvertedByItsCharacterSet) {
    ASSERT_NE(GetACP(), 932u);
    const wchar_t bytes[] = L"\u201A\u00A0x"; // 0x82 0xA0 is one character of code page 932
    EXPECT_EQ(Drawn(bytes, false, kCell, SHIFTJIS_CHARSET), DrawnBySystem(L"\u3042x"));
    EXPECT_EQ(Drawn(bytes, false), DrawnBySystem(bytes));
    std::wstring endless(600, L'i');
    const std::wstring buffer(255, L'i');
    RECT asked{}, cut{};
    const MemoryDC dc(nullptr);
    DrawTextMultiLang(dc.Get(), endless, asked, DT_SINGLELINE | DT_CALCRECT, false, SHIFTJIS_CHARSET);
    DrawTextW(dc.Get(), buffer.c_str(), -1, &cut, DT_SINGLELINE | DT_CALCRECT);
    EXPECT_EQ(asked.right, cut.right) << "the conversion holds 255 characters";
    EXPECT_EQ(CodePageFromCharset(SHIFTJIS_CHARSET), 932u);
    EXPECT_EQ(CodePageFromCharset(ANSI_CHARSET), 1252u);
    EXPECT_EQ(CodePageFromCharset(77000), 0u);
}

TEST(TextOutput, ZeroEndsATextAndEndlessTextsAreCutNotFatal) {
    EXPECT_EQ(Drawn(std::wstring_view(L"AB\0CD", 5), false), DrawnBySystem(L"AB"));
    EXPECT_EQ(Drawn(ExpandText(std::wstring_view(L"AB\0CD", 5)), true), DrawnBySystem(L"AB"));
    const MemoryDC dc(nullptr);
    EXPECT_EQ(MeasureText(dc.Get(), std::wstring_view(L"AB\0CD", 5), false).cx, MeasureText(dc.Get(), L"AB", false).cx);
    const std::wstring megabyte(1 << 20, L'w');
    EXPECT_EQ(Drawn(megabyte, false), DrawnBySystem(std::wstring(2000, L'w').c_str()));
    EXPECT_EQ(Drawn(ExpandText(megabyte), true), DrawnBySystem(std::wstring(2000, L'w').c_str()));
    EXPECT_EQ(Drawn(megabyte, false, DT_WORDBREAK), DrawnBySystem(std::wstring(2000, L'w').c_str(), DT_WORDBREAK));
    EXPECT_GT(MeasureText(dc.Get(), megabyte, false).cx, 8000);
}

TEST(TextOutput, HandMadeAlignmentDrawsNothingOrLeavesTheContextChanged) {
    const Picture picture = Drawn([](HDC dc, RECT& rc) {
        SetTextAlign(dc, TA_RIGHT | TA_BOTTOM);
        DrawWideTextByHand(dc, L"HHH", rc, DT_CENTER, WideTextSource::CodePage);
        EXPECT_EQ(GetTextAlign(dc), static_cast<UINT>(TA_RIGHT | TA_BOTTOM));
    });
    EXPECT_NE(picture, Drawn(L"", false));
}

namespace {

// A container of 15 units a pixel on both axes around a real window.
class FakeContainer : public SplitterContainer {
public:
    FakeContainer(float width, float height) : Width(width), Height(height) {
        m_hWnd = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 50, 60, 200, 100, nullptr, nullptr, nullptr,
                                 nullptr);
    }
    ~FakeContainer() { DestroyWindow(m_hWnd); }

    HWND hWnd() const override { return m_hWnd; }
    float ScaleWidth() const override { return Width; }
    float ScaleHeight() const override { return Height; }
    float PixelsToUnitsX(float pixels) const override { return pixels * 15; }
    float PixelsToUnitsY(float pixels) const override { return pixels * 15; }
    float UnitsToPixelsX(float units) const override { return units / 15; }
    float UnitsToPixelsY(float units) const override { return units / 15; }
    void SetMousePointer(MousePointer pointer) override { Pointer = pointer; }

    float Width, Height;
    MousePointer Pointer = static_cast<MousePointer>(-1);

private:
    HWND m_hWnd;
};

struct FakePane : SplitterPane {
    void SetBounds(float left, float top, float width, float height) override { Bounds = {left, top, width, height}; }
    void SetVisible(bool visible) override { Visible = visible; }
    float Width() const override { return Bounds.Width; }
    float Height() const override { return Bounds.Height; }

    UnitRect Bounds;
    bool Visible = false;
};

struct SplitterTest : testing::Test, SplitterListener {
    void LocationChanged(CSplitter&) override {
        ++Changes;
        if (OnChange)
            OnChange();
    }
    void SplitterDblClick(CSplitter&) override { ++DblClicks; }

    void Start(SplitterOrientation orientation) {
        Splitter.init(&Container, &First, &Second, orientation);
        Splitter.SplitterbarSize(60);
        Splitter.SplitterLocation(900);
        Changes = 0;
    }

    FakeContainer Container{3000, 1500};
    FakePane First, Second;
    int Changes = 0, DblClicks = 0;
    std::function<void()> OnChange;
    CSplitter Splitter{this};
};

} // namespace

TEST_F(SplitterTest, NewBarTakesItsSizeFromTheSystemAndItsFirstPlaceFromTheOtherDimension) {
    const float bar = GetSystemMetrics(SM_CYFRAME) * 15.0f;
    Splitter.init(&Container, &First, &Second, SplitterOrientation::Vertical);
    EXPECT_EQ(Splitter.SplitterbarSize(), bar);
    EXPECT_EQ(Splitter.SplitterLocation(), 750 - bar);
    EXPECT_EQ(Container.Pointer, MousePointer::SizeWE);
    EXPECT_EQ(Changes, 0) << "the orientation did not change: nothing is arranged yet";

    CSplitter turned(this);
    turned.init(&Container, &First, &Second, SplitterOrientation::Horizontal);
    // (3000 / 2 - bar) is rescaled by 3000 / 1500 and then kept inside.
    EXPECT_EQ(turned.SplitterLocation(), 1500 - bar - 15);
    EXPECT_EQ(Container.Pointer, MousePointer::SizeNS);
    EXPECT_EQ(Changes, 1);
}

TEST_F(SplitterTest, DoubleClickTogglesAHorizontalBarAndIsReportedForAVerticalOne) {
    Start(SplitterOrientation::Horizontal);
    Splitter.SplitterLocation(600);
    Splitter.SplitterLocation(600);
    Splitter.ContainerDblClick();
    EXPECT_EQ(Splitter.SplitterLocation(), 900) << "setting the same location does not lose the one before";
    Splitter.ContainerDblClick();
    EXPECT_EQ(Splitter.SplitterLocation(), 600);
    Splitter.Locked(true);
    EXPECT_EQ(Container.Pointer, MousePointer::Default);
    Splitter.ContainerDblClick();
    EXPECT_EQ(Splitter.SplitterLocation(), 600);
    EXPECT_EQ(DblClicks, 0);
    OnChange = [this] {
        if (Splitter.SplitterLocation() > 300)
            Splitter.SplitterLocation(300);
    };
    Splitter.SplitterLocation(5000);
    EXPECT_EQ(First.Bounds.Height, 300) << "a listener may move the bar again";

    CSplitter columns(this);
    columns.init(&Container, &First, &Second, SplitterOrientation::Vertical);
    columns.Locked(true);
    const float before = columns.SplitterLocation();
    columns.ContainerDblClick();
    EXPECT_EQ(DblClicks, 1);
    EXPECT_EQ(columns.SplitterLocation(), before);
}

TEST_F(SplitterTest, HiddenPaneLeavesTheContainerToTheOtherWithoutAnEvent) {
    Start(SplitterOrientation::Horizontal);
    Splitter.HidePane(HiddenPane::Bottom);
    EXPECT_FALSE(Second.Visible);
    EXPECT_EQ(First.Bounds, (UnitRect{0, 0, 3000, 1500}));
    EXPECT_EQ(Changes, 0);
    Splitter.HidePane(HiddenPane::None);
    EXPECT_TRUE(First.Visible && Second.Visible);
    EXPECT_EQ(First.Bounds, (UnitRect{0, 0, 3000, 900}));
    EXPECT_EQ(Second.Bounds, (UnitRect{0, 960, 3000, 540}));
    EXPECT_EQ(Changes, 1);
    Splitter.HidePane(HiddenPane::Top);
    EXPECT_FALSE(First.Visible);
    EXPECT_EQ(Second.Bounds, (UnitRect{0, 0, 3000, 1500}));
}

TEST_F(SplitterTest, DragMovesTheBarAtItsEndAndGivesCaptureAndCursorBack) {
    Start(SplitterOrientation::Vertical);
    Splitter.ContainerMouseMove(1, 0, 500, 10);
    Splitter.ContainerMouseUp(1, 0, 500, 10);
    EXPECT_EQ(Changes, 0) << "no drag is under way";
    Splitter.ContainerMouseDown(2, 0, 910, 10);
    EXPECT_FALSE(Splitter.Dragging()) << "only the left button drags";
    Splitter.Locked(true);
    Splitter.ContainerMouseDown(1, 0, 910, 10);
    EXPECT_FALSE(Splitter.Dragging());
    Splitter.Locked(false);

    const auto confinedTo = [](const RECT& place) {
        RECT clip{};
        return GetClipCursor(&clip) && EqualRect(&clip, &place);
    };
    const RECT bars{50, 60, 250, 160};
    EXPECT_TRUE(Eventually([&] {
        if (confinedTo(bars))
            return true;
        Splitter.ContainerMouseUp(1, 0, 910, 10);
        SetForegroundWindow(Container.hWnd()); // only that window may confine the cursor
        Splitter.ContainerMouseDown(1, 0, 910, 10);
        return confinedTo(bars);
    }));
    EXPECT_TRUE(Splitter.Dragging());
    EXPECT_EQ(GetCapture(), Container.hWnd());
    Splitter.ContainerMouseMove(1, 0, 1500, 700);
    EXPECT_EQ(Splitter.SplitterLocation(), 900) << "the panes wait for the end";
    Splitter.ContainerMouseUp(1, 0, 1210, 10);
    EXPECT_EQ(Splitter.SplitterLocation(), 1200) << "the bar keeps its distance from the mouse";
    EXPECT_EQ(Second.Bounds, (UnitRect{1260, 0, 1740, 1500}));
    EXPECT_FALSE(Splitter.Dragging());
    EXPECT_EQ(GetCapture(), nullptr);
    RECT desktop{};
    GetWindowRect(GetDesktopWindow(), &desktop);
    EXPECT_TRUE(Eventually([&] { return confinedTo(desktop); }));
}

TEST_F(SplitterTest, AbsentPartsAreSkippedAndDraggingLeavesNoHandle) {
    CSplitter bare;
    bare.SplitterLocation(10);
    bare.ContainerResize();
    bare.ContainerMouseDown(1, 0, 1, 1);
    bare.HidePane(HiddenPane::Left);
    {
        CSplitter dropped;
        dropped.init(&Container, &First, &Second, SplitterOrientation::Vertical);
        dropped.ContainerMouseDown(1, 0, 900, 10);
        EXPECT_EQ(GetCapture(), Container.hWnd());
    }
    EXPECT_EQ(GetCapture(), nullptr) << "a splitter that goes in a drag gives the mouse back";

    Start(SplitterOrientation::Vertical);
    const auto drag = [this] {
        Splitter.ContainerMouseDown(1, 0, 900, 10);
        Splitter.ContainerMouseMove(1, 0, 950, 10);
        Splitter.ContainerMouseUp(1, 0, 900, 10);
    };
    drag();
    const unsigned before = LiveGdiHandles();
    for (int i = 0; i < 20; ++i)
        drag();
    EXPECT_EQ(LiveGdiHandles(), before);
}

TEST(AboutWindow, ShowsAnotherTextLeavesItsOwnerToTheUserOrStaysAtEnterOrEsc) {
    std::optional<Inventory> before;
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        before.emplace(); // what the system makes at the first time stays
        const HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 400, 300,
                                           nullptr, nullptr, nullptr, nullptr);
        const HWND focus =
            CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, owner, nullptr, nullptr, nullptr);
        SetFocus(focus);
        {
            const InDialog dialog(
                [&] {
                    std::wstring texts = TextOfWindow(Dialog()) + L"|";
                    for (const HWND part : PartsOf(Dialog()))
                        texts += TextOfWindow(part) + L"|";
                    EXPECT_NE(texts.find(L"About Ormisk Grid|"), std::wstring::npos);
                    EXPECT_NE(texts.find(L"|Ormisk Grid|"), std::wstring::npos);
                    EXPECT_NE(texts.find(L"|Version 1.02.0003|"), std::wstring::npos);
                    EXPECT_FALSE(IsWindowEnabled(owner));
                    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
                },
                0); // no answer but the key
            ShowAboutWindow(focus, L"Ormisk Grid", L"1.02.0003");
            EXPECT_EQ(dialog.Seen(), 1);
        }
        EXPECT_TRUE(IsWindowEnabled(owner));
        DestroyWindow(owner);
    }
    before->ExpectNoMore();
}

} // namespace ormisk::test
