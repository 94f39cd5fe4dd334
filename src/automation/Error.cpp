#include "automation/Error.h"

#include <exception>
#include <new>

namespace ormisk {

const wchar_t kLibraryTitle[] = L"OrmiskGrid";

namespace {

constexpr HRESULT kErrorBase = static_cast<HRESULT>(0x80040000L);

std::wstring TakeText(BSTR& text) {
    std::wstring result = text ? std::wstring(text, SysStringLen(text)) : std::wstring();
    SysFreeString(text);
    text = nullptr;
    return result;
}

std::wstring Text(const _bstr_t& text) {
    return text.length() ? std::wstring(static_cast<const wchar_t*>(text), text.length()) : std::wstring();
}

std::wstring Widen(const char* text) { return std::wstring(text, text + strlen(text)); }

} // namespace

const wchar_t* ErrorText(ErrorCode code) {
    switch (code) {
    case ErrorCode::InvalidNameOrValue:
        return L"Invalid property name or value.";
    case ErrorCode::InvalidPropertyValue:
        return L"Invalid property value.";
    case ErrorCode::InvalidKey:
        return L"Invalid key specified.";
    case ErrorCode::EditorKeyPresent:
        return L"Editor with this key is already present.";
    case ErrorCode::PropertyKeyPresent:
        return L"Property with this key is already present.";
    case ErrorCode::PropertyNamePresent:
        return L"Property with this name is already present in specified category.";
    case ErrorCode::InvalidIndex:
        return L"Invalid index value.";
    case ErrorCode::MinimumWidth:
        return L"Minimum width must be greater than 0 and less than maximum width.";
    case ErrorCode::MaximumWidth:
        return L"Maximum width must be greater than 0 and minimum width.";
    case ErrorCode::InvalidEditorValue:
        return L"Invalid value for specified editor.";
    case ErrorCode::InvalidColumn:
        return L"Invalid column index.";
    case ErrorCode::EditorNotRegistered:
        return L"Editor is not registered.";
    case ErrorCode::AlienProperty:
        return L"Alien property object.";
    case ErrorCode::InvalidRecordset:
        return L"Invalid RecordSet object.";
    case ErrorCode::InvalidAction:
        return L"Invalid action for this property.";
    case ErrorCode::InvalidPropertyObject:
        return L"Invalid property object specified.";
    }
    return L"";
}

HRESULT ErrorNumber(ErrorCode code) { return kErrorBase + static_cast<long>(code); }

void Raise(ErrorCode code, std::wstring source) { Raise(ErrorNumber(code), ErrorText(code), std::move(source)); }

void Raise(HRESULT number, std::wstring description, std::wstring source, std::wstring helpFile) {
    throw AutomationError{FAILED(number) ? number : E_FAIL, std::move(source), std::move(description),
                          std::move(helpFile)};
}

void Check(HRESULT hr) {
    if (FAILED(hr))
        throw TakeErrorInfo(hr);
}

void CheckSystem(HRESULT hr) {
    switch (hr) {
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
        Raise(kTypeMismatch, L"Type mismatch");
    case DISP_E_OVERFLOW:
        Raise(kOverflow, L"Overflow");
    default:
        if (FAILED(hr))
            Raise(hr, SystemText(hr));
    }
}

void RaiseBadPosition() { Raise(static_cast<HRESULT>(0x800A0009), L"Subscript out of range"); }

void CheckPointer(const void* pointer) {
    if (!pointer)
        Raise(E_POINTER, SystemText(E_POINTER));
}

AutomationError CurrentError() {
    try {
        throw;
    } catch (const AutomationError& error) {
        return error;
    } catch (const _com_error& error) {
        const std::wstring text = error.ErrorInfo() ? Text(error.Description()) : std::wstring();
        const std::wstring source = error.ErrorInfo() ? Text(error.Source()) : std::wstring();
        return {error.Error(),
                source.empty() ? kLibraryTitle : source,
                text.empty() ? SystemText(error.Error()) : text,
                {}};
    } catch (const std::bad_alloc&) {
        return {E_OUTOFMEMORY, kLibraryTitle, SystemText(E_OUTOFMEMORY), {}};
    } catch (const std::exception& error) {
        return {E_FAIL, kLibraryTitle, Widen(error.what()), {}};
    } catch (...) {
        return {E_UNEXPECTED, kLibraryTitle, SystemText(E_UNEXPECTED), {}};
    }
}

AutomationError TakeException(EXCEPINFO& exception) {
    if (exception.pfnDeferredFillIn) {
        exception.pfnDeferredFillIn(&exception);
        exception.pfnDeferredFillIn = nullptr;
    }
    AutomationError error;
    // An error is given either as an HRESULT or as a small code of the callee's own.
    if (exception.wCode)
        error.number = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, exception.wCode);
    else if (FAILED(exception.scode))
        error.number = exception.scode;
    error.source = TakeText(exception.bstrSource);
    error.description = TakeText(exception.bstrDescription);
    error.helpFile = TakeText(exception.bstrHelpFile);
    if (error.description.empty())
        error.description = SystemText(error.number);
    return error;
}

AutomationError TakeErrorInfo(HRESULT hr) {
    AutomationError error{hr, {}, {}, {}};
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.GetAddressOf()) == S_OK && info) {
        BSTR text = nullptr;
        if (SUCCEEDED(info->GetSource(&text)))
            error.source = TakeText(text);
        if (SUCCEEDED(info->GetDescription(&text)))
            error.description = TakeText(text);
        if (SUCCEEDED(info->GetHelpFile(&text)))
            error.helpFile = TakeText(text);
    }
    if (error.source.empty())
        error.source = kLibraryTitle;
    if (error.description.empty())
        error.description = SystemText(hr);
    return error;
}

HRESULT PublishError(REFIID iid, const AutomationError& error) noexcept {
    ComPtr<ICreateErrorInfo> create;
    if (SUCCEEDED(CreateErrorInfo(create.GetAddressOf()))) {
        create->SetGUID(iid);
        create->SetSource(const_cast<wchar_t*>(error.source.c_str()));
        create->SetDescription(const_cast<wchar_t*>(error.description.c_str()));
        if (!error.helpFile.empty())
            create->SetHelpFile(const_cast<wchar_t*>(error.helpFile.c_str()));
        SetErrorInfo(0, Query<IErrorInfo>(create).Get());
    }
    return FAILED(error.number) ? error.number : E_FAIL;
}

HRESULT PublishCurrentError(REFIID iid) noexcept {
    try {
        return PublishError(iid, CurrentError());
    } catch (...) {
        return E_OUTOFMEMORY; // describing the error took more memory than there is
    }
}

std::wstring SystemText(HRESULT number) {
    wchar_t* buffer = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(number), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text(buffer ? buffer : L"", length);
    LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    return text.empty() ? L"Automation error" : text;
}

} // namespace ormisk
