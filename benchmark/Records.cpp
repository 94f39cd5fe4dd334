#include "Records.h"

#include "GridWindow.h"
#include "Sorting.h"
#include "Stopwatch.h"

#include "sources/Recordset.h"

#include <cstdio>
#include <string>

namespace ormisk::bench {
namespace {

constexpr int kFields[] = {10, 100};
constexpr int kRecords = 200;
constexpr int kRuns = 401;
constexpr wchar_t kFile[] = L"build\\bench.db"; // of the folder that this runs in
constexpr wchar_t kConnection[] = L"Driver=SQLite3;Database=build/bench.db";
constexpr long kKeyset = 1;
constexpr long kOptimistic = 3;

// With one call given all arguments, the last of which comes first.
void Open(IDispatch* recordset, const std::wstring& source) {
    wchar_t name[] = L"Open";
    LPOLESTR names[] = {name};
    DISPID id = DISPID_UNKNOWN;
    Need(recordset->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), "Open by name");
    _variant_t arguments[] = {kOptimistic, kKeyset, kConnection, source.c_str()};
    DISPPARAMS parameters{arguments, nullptr, static_cast<UINT>(std::size(arguments)), 0};
    Need(recordset->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
         "Open");
}

// Whole numbers, texts, real numbers and Booleans by turns, other ones in each record.
std::wstring TableOf(int fields, const std::wstring& table) {
    static constexpr const wchar_t* kTypes[] = {L" INTEGER", L" VARCHAR(60)", L" DOUBLE", L" BOOLEAN"};
    std::wstring command = L"CREATE TABLE " + table + L" (f0 INTEGER PRIMARY KEY";
    for (int i = 1; i < fields; ++i)
        command += L", f" + std::to_wstring(i) + kTypes[i % 4];
    return command + L")";
}

std::wstring RecordOf(int fields, const std::wstring& table, int record) {
    std::wstring command = L"INSERT INTO " + table + L" VALUES (" + std::to_wstring(record + 1);
    for (int i = 1; i < fields; ++i) {
        const std::wstring number = std::to_wstring(record * 7 + i);
        const std::wstring values[] = {number, L"'text " + number + L"'", number + L".5",
                                       std::to_wstring((record + i) % 2)};
        command += L", " + values[i % 4];
    }
    return command + L")";
}

// Of the class in this program's folder, registered or not.
ComPtr<IDispatch> NewRecordset() {
    static constexpr GUID kClass = {0x3d0b6a0e, 0x6f0c, 0x4a53, {0x9d, 0x3b, 0x9a, 0x4c, 0x2b, 0x7e, 0x51, 0xf1}};
    static const ComPtr<IClassFactory> factory = ClassIn(L"OrmiskRecords.dll", kClass);
    ComPtr<IDispatch> recordset;
    Need(factory->CreateInstance(nullptr, IID_PPV_ARGS(&recordset)), "a recordset");
    return recordset;
}

ormisk::Recordset Opened(const std::wstring& source) {
    const ComPtr<IDispatch> recordset = NewRecordset();
    Open(recordset.Get(), source);
    return ormisk::Recordset(recordset.Get());
}

// As hosts write it: recordset.Fields(i).Value.
void ReadFields(const ormisk::Recordset& recordset, int count) {
    for (int i = 0; i < count; ++i)
        recordset.Fields().At(i).Value();
}

void Rewind(const ormisk::Recordset& recordset) {
    if (recordset.AbsolutePosition() >= kRecords)
        recordset.MoveFirst();
}

void MeasureTable(const GridWindow& window, int fields) {
    const std::wstring table = L"t" + std::to_wstring(fields);
    Opened(TableOf(fields, table));
    for (int record = 0; record < kRecords; ++record)
        Opened(RecordOf(fields, table, record));
    const ormisk::Recordset bare = Opened(table);
    const ormisk::Recordset shown = Opened(table);
    VARIANT_BOOL answer = VARIANT_FALSE;
    Need(window.Grid()->LoadRecordset(shown.Object(), VARIANT_TRUE, &answer), "LoadRecordset");
    window.Settle();
    const auto prepare = [&window, shown] {
        Rewind(shown);
        window.Settle();
    };
    const std::vector<double> medians = MediansOf(kRuns, {{[bare] { Rewind(bare); },
                                                           [bare, fields] {
                                                               bare.MoveNext();
                                                               ReadFields(bare, fields);
                                                           }},
                                                          {prepare, [shown] { shown.MoveNext(); }},
                                                          {prepare, [shown, &window] {
                                                               shown.MoveNext();
                                                               window.Paint();
                                                           }}});
    Report("record_read", fields, medians[0]);
    Report("record_move", fields, medians[1]);
    Report("record_move_painted", fields, medians[2]);
    Need(window.Grid()->LoadObjectProperties(nullptr, VARIANT_TRUE, VARIANT_TRUE, &answer), "letting go");
    window.Settle();
}

} // namespace

void MeasureRecords(const GridWindow& window) {
    DeleteFileW(kFile);
    try {
        for (const int fields : kFields)
            MeasureTable(window, fields);
    } catch (const AutomationError& error) {
        std::fprintf(stderr, "ormisk-bench: %ls\n", error.description.c_str());
        Need(error.number, "records");
    }
    DeleteFileW(kFile);
}

} // namespace ormisk::bench
