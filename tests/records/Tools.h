#pragma once

#include "automation/ByName.h"
#include "automation/Unknown.h"
#include "records/Recordset.h"

#include <gtest/gtest.h>

namespace ormisk::records::test {

// A database in a file of its own, gone with the test.
class Database {
public:
    Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();
    void Do(const std::wstring& command) const;
    std::wstring Ask(const std::wstring& command) const; // one value as text
    std::wstring Connect(const wchar_t* more = L"") const;
    std::wstring ConnectReadOnly() const;

private:
    std::wstring m_File;     // as Windows names it
    std::wstring m_UnixFile; // as the driver does
};

// Calls by name, as a script makes them.
class Script {
public:
    Script() : m_Recordset(MakeObject<Recordset>()) {}
    Recordset* operator->() const { return m_Recordset.Get(); }
    Recordset* Get() const { return m_Recordset.Get(); }

    void Open(const Database& database, const wchar_t* source, LockTypeEnum lock = adLockOptimistic) const;
    _variant_t Get(const wchar_t* property) const;
    long Number(const wchar_t* property) const { return static_cast<long>(Get(property)); }
    bool Is(const wchar_t* property) const { return static_cast<bool>(Get(property)); }
    void Put(const wchar_t* property, const _variant_t& value) const;
    // The failure's number, S_OK without one.
    HRESULT Do(const wchar_t* method) const;

    ComPtr<IDispatch> Field(const _variant_t& index) const;
    _variant_t Value(const _variant_t& index) const;
    std::wstring Text(const _variant_t& index) const { return TextOf(Value(index)); }
    void SetValue(const _variant_t& index, const _variant_t& value) const;
    HRESULT TrySetValue(const _variant_t& index, const _variant_t& value, std::wstring* text = nullptr) const;

private:
    ComPtr<Recordset> m_Recordset;
};

constexpr HRESULT Number(Failure failure) { return static_cast<HRESULT>(0x800A0000L) + static_cast<long>(failure); }

// The error that the body raises, with S_OK for none.
template <class F> AutomationError ErrorOf(F&& body) {
    try {
        body();
        return {S_OK, {}, {}, {}};
    } catch (...) {
        return CurrentError();
    }
}

} // namespace ormisk::records::test
