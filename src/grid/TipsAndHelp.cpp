#include "grid/TipsAndHelp.h"

#include "grid/Grid.h"
#include "grid/TipRules.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"
#include "win/Gdi.h"
#include "win/Rects.h"

#include <algorithm>
#include <bit>

namespace ormisk {

namespace {

constexpr Color kNotSet = static_cast<Color>(-1);
constexpr UINT kHelpContext = 0xF; // of the HTML viewer
// A longer text is cut: a tip is to be read at a glance.
constexpr std::size_t kMostInTip = 2000;
constexpr long kTipFrame = 8; // frame and margins, at least

// The viewer is loaded when it is asked for: not every system has it.
void ShowHtmlHelp(const std::wstring& file, long topic) {
    using Show = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
    static const HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
    const FARPROC found = viewer ? GetProcAddress(viewer, "HtmlHelpW") : nullptr;
    if (found)
        std::bit_cast<Show>(found)(GetDesktopWindow(), file.c_str(), kHelpContext, static_cast<DWORD>(topic));
}

void ShowClassicHelp(const std::wstring& file, long topic) {
    WinHelpW(GetDesktopWindow(), file.c_str(), HELP_CONTEXT, static_cast<DWORD>(topic));
}

// Byte-expanded text may begin with the mark of its byte order, which takes no room.
std::wstring_view Measured(std::wstring_view text, bool byteExpanded) {
    const bool marked = byteExpanded && text.size() >= 3 && text[0] == 0xFF && text[1] == 0xFE;
    return marked ? text.substr(2) : text;
}

} // namespace

HelpCalls& HelpCallsInUse() {
    static HelpCalls calls{ShowHtmlHelp, ShowClassicHelp};
    return calls;
}

UINT_PTR TipsAndHelp::Tool() const { return reinterpret_cast<UINT_PTR>(m_Grid.m_Panes.TreeWnd()); }

void TipsAndHelp::Create() {
    m_Tooltip.init(m_Grid.m_Panes.TreeWnd());
    m_Tooltip.AddTool(Tool(), false, 0, 0, 0, 0, {});
    m_Tooltip.Text(Tool(), {});
}

std::optional<TipsAndHelp::Place> TipsAndHelp::PlaceAt(long x, long y) const {
    const Panes& panes = m_Grid.m_Panes;
    Place place;
    place.node = panes.RowFromPoint(x, y);
    if (!place.node)
        return std::nullopt;
    const RowGeometry geometry = panes.GeometryOf(*place.node);
    place.cell = {place.node->NodeId(), x < panes.m_picNameHeader.ClientSize().cx};
    place.rect = place.cell.name ? geometry.name : geometry.value;
    const CProperty* property = place.node->Property();
    if (place.cell.name)
        place.before = geometry.textLeft;
    else if (property && property->EditorKind() == omColorEditor)
        place.before = SwatchRect(place.rect).right - place.rect.left;
    return place;
}

bool TipsAndHelp::IsCutOff(const Place& place, const std::wstring& text, HFONT font, bool byteExpanded) const {
    const WindowDC dc(m_Grid.m_Panes.TreeWnd());
    if (!dc || text.empty())
        return false;
    const SelectGuard selected(dc.Get(), font);
    const long width = MeasureText(dc.Get(), Measured(text, byteExpanded), byteExpanded).cx;
    return !FitsInCell(width, place.before, place.rect.Width());
}

void TipsAndHelp::UpdateTooltip(long x, long y) {
    const auto before = PlaceAt(x, y);
    if (!before || before->cell == m_Shown)
        return;
    CNode& node = *before->node;
    const ComPtr<CProperty> property(node.Property());
    RowLook& look = m_Grid.m_RowLook;
    // May ask the host's objects, which can do anything to the rows.
    std::wstring text = look.CellText(node, property.Get(), before->cell.name);
    const auto place = m_Grid.IsAlive() ? PlaceAt(x, y) : std::nullopt;
    if (!place || place->node != before->node || place->cell != before->cell || place->cell == m_Shown)
        return;
    const HFONT font = look.FontOf(node, L"TMP_FONT");
    const bool byteExpanded = look.ByteExpanded(property.Get());
    if (!IsCutOff(*place, text, font, byteExpanded)) {
        Hide();
        return;
    }
    if (text.size() > kMostInTip)
        text = text.substr(0, kMostInTip) + (byteExpanded ? ExpandText(L"\x2026") : L"\x2026");
    const GridState& state = m_Grid.m_State;
    m_Tooltip.hFont(font);
    const Rect& rect = place->rect;
    m_Tooltip.SetNewToolRect(Tool(), rect.left, rect.top, rect.Width(), rect.Height());
    m_Tooltip.BackColor(node.BackColor() == kNotSet ? static_cast<Color>(state.propertyBackColor) : node.BackColor());
    m_Tooltip.ForeColor(node.ForeColor() == kNotSet ? static_cast<Color>(state.foreColor) : node.ForeColor());
    m_Tooltip.MaxTipWidth(WorkArea(m_Grid.m_Panes.TreeWnd()).Width() - kTipFrame);
    m_Tooltip.Unicode(byteExpanded);
    m_Tooltip.Text(Tool(), text);
    m_Tooltip.Activate(true);
    if (std::exchange(m_Ready, place->cell) != place->cell)
        m_Tooltip.Relay(x, y);
}

bool TipsAndHelp::OnNotify(const NMHDR& notice, LRESULT& result) {
    if (!m_Tooltip.hwnd() || notice.hwndFrom != m_Tooltip.hwnd())
        return false;
    if (notice.code == static_cast<UINT>(TTN_POP))
        m_Shown = {};
    if (notice.code != static_cast<UINT>(TTN_SHOW) || !OnTooltipShow())
        return false;
    result = TRUE; // it stays where it was put
    return true;
}

// The text stands where it stands in the cell, if it can be read there: a tip does not leave the screen.
bool TipsAndHelp::OnTooltipShow() {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(m_Grid.m_Panes.TreeWnd(), &point);
    const auto place = PlaceAt(point.x, point.y);
    if (!place || place->cell == m_Shown)
        return false;
    m_Shown = place->cell;
    POINT corner{place->rect.left + place->before - 1, place->rect.top};
    ClientToScreen(m_Grid.m_Panes.TreeWnd(), &corner);
    const Rect screen = WorkArea(m_Grid.m_Panes.TreeWnd());
    const Size tip = m_Tooltip.TipSize(Tool());
    m_Tooltip.SetToolWindowPos(std::max(screen.left, std::min(corner.x, screen.right - tip.cx)),
                               std::max(screen.top, std::min(corner.y, screen.bottom - tip.cy)));
    return true;
}

void TipsAndHelp::Hide() {
    if (m_Ready == Cell())
        return;
    m_Ready = {};
    m_Shown = {};
    m_Tooltip.Text(Tool(), {});
    m_Tooltip.SetNewToolRect(Tool(), 0, 0, 0, 0);
    m_Tooltip.Pop();
}

void TipsAndHelp::RowChanged(const CNode* node) {
    if (node && node->NodeId() == m_Ready.node)
        Hide();
}

void TipsAndHelp::RequestHelp(CProperty& property) {
    const ComPtr<CProperty> held(&property);
    bool processDefault = true;
    m_Grid.m_Events.HelpRequested(property, processDefault);
    if (!processDefault)
        return;
    const std::wstring file = HelpFileName(property.HelpFile());
    const HelpViewer viewer = HelpViewerFor(file);
    if (viewer == HelpViewer::Html)
        HelpCallsInUse().html(file, property.HelpContext());
    else if (viewer == HelpViewer::Classic)
        HelpCallsInUse().classic(file, property.HelpContext());
}

} // namespace ormisk
