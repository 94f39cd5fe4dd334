#pragma once

#include "RecordsetDouble.h"

namespace ormisk::test {

// Three people: a text and a number.
ComPtr<RecordsetDouble> People();

// LoadRecordset, which has nothing to say of its success.
void LoadRecords(const GridContainer& host, IDispatch* recordset, bool autoUpdate = true);
ComPtr<IDispatch> LoadedRecordset(const GridContainer& host);

// The rows in the order of the collection: "Name=Ann Age=30"; Null is told apart from an empty text.
std::wstring Values(const GridContainer& host);

// The row of a key is selected and the text typed into its editor.
void TypeInto(GridContainer& host, const wchar_t* key, const wchar_t* text);
// And confirmed.
void Edit(GridContainer& host, const wchar_t* key, const wchar_t* text);

// The windows of the record toolbar, once it has been laid out with all its parts.
class RecordBar {
public:
    explicit RecordBar(const GridContainer& host);
    HWND strip = nullptr;
    HWND first = nullptr, previous = nullptr, number = nullptr, total = nullptr, next = nullptr, last = nullptr;

    static void Click(GridContainer& host, HWND part, long x = 5); // with the real mouse
    bool IsShown() const;
    // The enabled buttons by their initials, with dashes for the others, around number and total: "FP[2] of 3 --".
    std::wstring Text() const;
    void TypeNumber(const std::wstring& text) const; // replaces what is there
    void Confirm() const { SendMessageW(number, WM_CHAR, L'\r', 1); }
};

// Tests with recordsets, of which nothing may be left.
class RecordsetTest : public GridTest {
protected:
    void WarmUp() override;
};

} // namespace ormisk::test
