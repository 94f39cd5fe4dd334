#include "Tools.h"

#include <bit>

namespace ormisk::records::test {

namespace {

std::wstring UnixName(const std::wstring& file) {
    using Convert = char*(CDECL*)(const wchar_t*);
    const auto convert =
        std::bit_cast<Convert>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
    if (!convert)
        return file;
    char* const name = convert(file.c_str());
    const std::wstring wide(name, name + strlen(name));
    HeapFree(GetProcessHeap(), 0, name);
    return wide;
}

} // namespace

Database::Database() {
    wchar_t folder[MAX_PATH] = L"";
    wchar_t file[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"rec", 0, file);
    m_File = file;
    m_UnixFile = UnixName(m_File);
}

Database::~Database() { DeleteFileW(m_File.c_str()); }

std::wstring Database::Connect(const wchar_t* more) const {
    return L"Driver=SQLite3;Database=" + m_UnixFile + L";" + more;
}

// The attribute of the file would not bind the user that the tests may run as.
std::wstring Database::ConnectReadOnly() const { return L"Driver=SQLite3;Database=file:" + m_UnixFile + L"?mode=ro;"; }

void Database::Do(const std::wstring& command) const {
    const Connection connection(Connect());
    Statement(connection, command).Execute();
}

std::wstring Database::Ask(const std::wstring& command) const {
    const Connection connection(Connect());
    Statement statement(connection, command);
    statement.Execute();
    return statement.Fetch() ? TextOf(statement.Read(1, {0, Transfer::Text, false, false})) : L"(no row)";
}

void Script::Open(const Database& database, const wchar_t* source, LockTypeEnum lock) const {
    Check(m_Recordset->Open(_variant_t(source), ToVariant(database.Connect()), adOpenKeyset, lock, -1));
}

_variant_t Script::Get(const wchar_t* property) const {
    return InvokeByName(m_Recordset.Get(), property, DISPATCH_PROPERTYGET);
}

void Script::Put(const wchar_t* property, const _variant_t& value) const {
    _variant_t given = value;
    InvokeByName(m_Recordset.Get(), property, DISPATCH_PROPERTYPUT, &given);
}

HRESULT Script::Do(const wchar_t* method) const {
    return ErrorOf([&] { InvokeByName(m_Recordset.Get(), method, DISPATCH_METHOD); }).number;
}

ComPtr<IDispatch> Script::Field(const _variant_t& index) const {
    ComPtr<::Fields> fields;
    ComPtr<::Field> field;
    Check(m_Recordset->get_Fields(fields.GetAddressOf()));
    Check(fields->get_Item(index, field.GetAddressOf()));
    return Query<IDispatch>(field);
}

_variant_t Script::Value(const _variant_t& index) const {
    return InvokeByName(Field(index).Get(), L"Value", DISPATCH_PROPERTYGET);
}

void Script::SetValue(const _variant_t& index, const _variant_t& value) const {
    _variant_t given = value;
    InvokeByName(Field(index).Get(), L"Value", DISPATCH_PROPERTYPUT, &given);
}

HRESULT Script::TrySetValue(const _variant_t& index, const _variant_t& value, std::wstring* text) const {
    const AutomationError error = ErrorOf([&] { SetValue(index, value); });
    if (text)
        *text = error.description;
    return error.number;
}

} // namespace ormisk::records::test
