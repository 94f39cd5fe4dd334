#include "RecordsetTools.h"

#include "InDialog.h"

#include <tuple>

namespace ormisk::test {

ComPtr<RecordsetDouble> People() {
    return MakeObject<RecordsetDouble>(
        std::vector<FieldShape>{{.name = L"Name"}, {.name = L"Age", .type = kIntegerField}},
        Records{{L"Ann", 30L}, {L"Bob", 40L}, {L"Cid", 50L}});
}

void LoadRecords(const GridContainer& host, IDispatch* recordset, bool autoUpdate) {
    const ComPtr<OrmiskGrid> grid = host.grid;
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(grid->LoadRecordset(recordset, autoUpdate ? VARIANT_TRUE : VARIANT_FALSE, &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
}

ComPtr<IDispatch> LoadedRecordset(const GridContainer& host) { return Read(host, &OrmiskGrid::get_Recordset); }

std::wstring Values(const GridContainer& host) {
    std::wstring all;
    for (long i = 1; i <= host.Count(); ++i) {
        const auto row = host.Item(i);
        const _variant_t value = Read(row, &_CProperty::get_Value);
        all += (i > 1 ? L" " : L"") + PropertyName(row.Get()) + L"=" + (IsNull(value) ? L"Null" : TextOf(value));
    }
    return all;
}

void TypeInto(GridContainer& host, const wchar_t* key, const wchar_t* text) {
    host.Select(host.Item(key).Get());
    host.TypeIntoEditor(text);
}

void Edit(GridContainer& host, const wchar_t* key, const wchar_t* text) {
    TypeInto(host, key, text);
    host.Enter();
}

RecordBar::RecordBar(const GridContainer& host) {
    for (HWND child = GetWindow(host.TabStrip(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (child != host.Tree())
            strip = child;
    // From left to right; a hidden total has no width.
    std::set<std::tuple<long, long, HWND>> parts;
    for (HWND child = GetWindow(strip, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        parts.emplace(PlaceInParent(child).left, PlaceInParent(child).right, child);
    EXPECT_EQ(parts.size(), 6U);
    auto each = parts.begin();
    for (HWND* part : {&first, &previous, &number, &total, &next, &last})
        if (each != parts.end())
            *part = std::get<HWND>(*each++);
}

// No right click beside it: that would open the menu of the number.
void RecordBar::Click(GridContainer& host, HWND part, long x) { host.PlainClick(part, x, 5); }

bool RecordBar::IsShown() const { return GetWindowLongPtrW(strip, GWL_STYLE) & WS_VISIBLE; }

std::wstring RecordBar::Text() const {
    const auto button = [](HWND window, const wchar_t* initial) { return IsWindowEnabled(window) ? initial : L"-"; };
    return std::wstring(button(first, L"F")) + button(previous, L"P") + L"[" + TextOfWindow(number) + L"]" +
           TextOfWindow(total) + button(next, L"N") + button(last, L"L");
}

void RecordBar::TypeNumber(const std::wstring& text) const {
    SendMessageW(number, EM_SETSEL, 0, -1);
    SendMessageW(number, WM_CHAR, VK_BACK, 1);
    for (const wchar_t character : text)
        SendMessageW(number, WM_CHAR, character, 1);
}

void RecordsetTest::WarmUp() {
    GridTest::WarmUp();
    static const bool warm = [] {
        for (int i = 0; i < 2; ++i) {
            GridContainer host;
            LoadRecords(host, People().Get());
            const RecordBar bar(host);
            for (const HWND part : {bar.next, bar.number, bar.total, bar.strip})
                bar.Click(host, part);
            Edit(host, L"Age", L"31");
            host.Paint();
        }
        return true;
    }();
    ASSERT_TRUE(warm);
}

} // namespace ormisk::test
