#include "automation/StoredValues.h"

#include "automation/Value.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include <olectl.h>
#include <shlwapi.h>

namespace ormisk {

namespace {

// Of a stream is taken no more at once than it may really have.
constexpr std::size_t kPortion = 64 * 1024;

// Objects that a store may bring to life: the system's own fonts and pictures.
bool IsStorable(REFCLSID id) { return id == CLSID_StdFont || id == CLSID_StdPicture; }

std::vector<std::uint8_t> ReadBytes(IStream* stream, std::size_t most) {
    std::vector<std::uint8_t> bytes;
    while (bytes.size() < most) {
        const std::size_t before = bytes.size();
        const std::size_t wanted = std::min(most - before, kPortion);
        bytes.resize(before + wanted);
        ULONG read = 0;
        const HRESULT hr = stream->Read(bytes.data() + before, static_cast<ULONG>(wanted), &read);
        bytes.resize(before + std::min<std::size_t>(read, wanted));
        if (FAILED(hr) || read == 0)
            break;
    }
    return bytes;
}

void WriteBytes(IStream* stream, const std::vector<std::uint8_t>& bytes) {
    ULONG written = 0;
    Check(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written));
    if (written != bytes.size())
        Check(STG_E_MEDIUMFULL);
}

std::string NameOf(const wchar_t* name) {
    std::string narrow;
    for (; *name; ++name)
        narrow.push_back(static_cast<char>(*name)); // names of settings are ASCII
    return narrow;
}

std::vector<std::uint8_t> BytesOf(std::uint32_t number) {
    std::vector<std::uint8_t> bytes;
    PutNumber(bytes, number, 4);
    return bytes;
}

std::uint32_t NumberOf(const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() != 4)
        CheckSystem(DISP_E_TYPEMISMATCH);
    return TakeNumber(bytes);
}

// UTF-16, low byte first.
std::vector<std::uint8_t> BytesOf(const std::wstring& text) {
    std::vector<std::uint8_t> bytes;
    for (const wchar_t unit : text)
        PutNumber(bytes, unit, 2);
    return bytes;
}

std::wstring TextFrom(const std::vector<std::uint8_t>& bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        text.push_back(static_cast<wchar_t>(bytes[i] | bytes[i + 1] << 8));
    return text;
}

ComPtr<IStream> MemoryStream(std::span<const std::uint8_t> bytes) {
    ComPtr<IStream> stream;
    *stream.GetAddressOf() = SHCreateMemStream(bytes.data(), static_cast<UINT>(bytes.size()));
    if (!stream)
        Check(E_OUTOFMEMORY);
    return stream;
}

// The identifier of the class, and what the object writes itself.
std::vector<std::uint8_t> BytesOfObject(IUnknown* object) {
    const ComPtr<IPersistStream> persistent = Query<IPersistStream>(object);
    CLSID id{};
    if (!persistent || FAILED(persistent->GetClassID(&id)) || !IsStorable(id))
        CheckSystem(DISP_E_TYPEMISMATCH);
    const ComPtr<IStream> stream = MemoryStream({});
    Check(WriteClassStm(stream.Get(), id));
    Check(persistent->Save(stream.Get(), TRUE));
    Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    return ReadBytes(stream.Get(), kMostStored);
}

// Pictures want a stream of their own.
_variant_t ObjectFrom(std::span<const std::uint8_t> bytes) {
    CLSID id{};
    Check(ReadClassStm(MemoryStream(bytes).Get(), &id));
    if (!IsStorable(id))
        CheckSystem(DISP_E_TYPEMISMATCH);
    const ComPtr<IStream> stream = MemoryStream(bytes.subspan(sizeof id));
    ComPtr<IDispatch> object;
    if (id == CLSID_StdPicture) {
        Check(
            OleLoadPicture(stream.Get(), 0, FALSE, IID_IPictureDisp, reinterpret_cast<void**>(object.GetAddressOf())));
    } else {
        Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
        const ComPtr<IPersistStream> persistent = Query<IPersistStream>(object);
        CheckPointer(persistent.Get());
        Check(persistent->Load(stream.Get()));
    }
    return _variant_t(object.Get());
}

_variant_t Restore(const StoredValue& stored) {
    switch (stored.type) {
    case StoredType::Nothing:
        return _variant_t(static_cast<IDispatch*>(nullptr));
    case StoredType::Long:
        return _variant_t(static_cast<long>(NumberOf(stored.data)));
    case StoredType::Single:
        return _variant_t(std::bit_cast<float>(NumberOf(stored.data)));
    case StoredType::Boolean:
        if (stored.data.size() != 1)
            CheckSystem(DISP_E_TYPEMISMATCH);
        return _variant_t(stored.data.front() != 0);
    case StoredType::Text:
        return ToVariant(TextFrom(stored.data));
    case StoredType::Object:
        return ObjectFrom(stored.data);
    }
    CheckSystem(DISP_E_TYPEMISMATCH);
    return {};
}

StoredValue Kept(const wchar_t* name, const _variant_t& value) {
    StoredValue stored;
    stored.name = NameOf(name);
    switch (V_VT(&value)) {
    case VT_I2:
    case VT_I4:
        stored.type = StoredType::Long;
        stored.data = BytesOf(static_cast<std::uint32_t>(static_cast<long>(value)));
        break;
    case VT_R4:
        stored.type = StoredType::Single;
        stored.data = BytesOf(std::bit_cast<std::uint32_t>(V_R4(&value)));
        break;
    case VT_BOOL:
        stored.type = StoredType::Boolean;
        stored.data = {static_cast<std::uint8_t>(V_BOOL(&value) != VARIANT_FALSE)};
        break;
    case VT_BSTR:
        stored.type = StoredType::Text;
        stored.data = BytesOf(FromBstr(V_BSTR(&value)));
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (IUnknown* const object = ObjectOf(value)) {
            stored.type = StoredType::Object;
            stored.data = BytesOfObject(object);
        }
        break;
    default:
        CheckSystem(DISP_E_BADVARTYPE);
    }
    return stored;
}

} // namespace

// A bag may want to know the type, or to tell its own. What the second way can read is no error of the first.
_variant_t BagValues::Read(const wchar_t* name, const _variant_t& defaultValue) {
    const VARTYPE type = V_VT(&defaultValue) == VT_I2 ? VARTYPE{VT_I4} : V_VT(&defaultValue);
    HRESULT hr = E_INVALIDARG;
    for (const VARTYPE wanted : {type, VARTYPE{VT_EMPTY}}) {
        _variant_t value;
        V_VT(&value) = wanted;
        V_BSTR(&value) = nullptr; // as every pointer lies
        SetErrorInfo(0, nullptr); // an older failure is not this one
        hr = m_Bag->Read(name, &value, wanted == VT_EMPTY ? m_Log.Get() : nullptr);
        if (SUCCEEDED(hr))
            return V_VT(&value) == VT_EMPTY ? defaultValue : value;
        V_VT(&value) = VT_EMPTY; // nothing of it is ours
        if (hr == E_INVALIDARG)
            return defaultValue;
    }
    Check(hr);
    return defaultValue;
}

void BagValues::Write(const wchar_t* name, const _variant_t& value, const _variant_t& defaultValue) {
    if (!m_All && !HoldsObject(value) && CompareValues(value, defaultValue) == Comparison::Equal)
        return;
    _variant_t given = value;
    SetErrorInfo(0, nullptr);
    Check(m_Bag->Write(name, &given));
}

void BagValues::Refused(const wchar_t* name, const AutomationError& error) {
    const _bstr_t source(error.source.c_str());
    const _bstr_t description(error.description.c_str());
    EXCEPINFO info{};
    info.scode = error.number;
    info.bstrSource = source;
    info.bstrDescription = description;
    if (m_Log)
        m_Log->AddError(name, &info);
}

StreamValues::StreamValues(IStream* stream) {
    CheckPointer(stream);
    const std::vector<std::uint8_t> header = ReadBytes(stream, kStoredHeader);
    if (const auto length = StoredLength(header))
        m_Values = DecodeStored(ReadBytes(stream, *length));
}

void StreamValues::Save(IStream* stream) const {
    CheckPointer(stream);
    WriteBytes(stream, EncodeStored(m_Values));
}

std::uint64_t StreamValues::Size() const { return EncodeStored(m_Values).size(); }

_variant_t StreamValues::Read(const wchar_t* name, const _variant_t& defaultValue) {
    const auto stored = std::ranges::find(m_Values, NameOf(name), &StoredValue::name);
    return stored == m_Values.end() ? defaultValue : Restore(*stored);
}

void StreamValues::Write(const wchar_t* name, const _variant_t& value, const _variant_t&) {
    m_Values.push_back(Kept(name, value));
}

} // namespace ormisk
