#pragma once

#include "automation/ComPtr.h"

#include <comdef.h>

#include <string>
#include <type_traits>
#include <utility>

namespace ormisk {

// Failures: exceptions inside, HRESULT with error information at a COM method.

// The source of errors that have none of their own.
extern const wchar_t kLibraryTitle[];

// Codes of the library's own errors; the number of each is 0x80040000 + code.
enum class ErrorCode : long {
    InvalidNameOrValue = 1,
    InvalidPropertyValue = 2,
    InvalidKey = 3,
    EditorKeyPresent = 4,
    PropertyKeyPresent = 5,
    PropertyNamePresent = 6,
    InvalidIndex = 7,
    MinimumWidth = 8,
    MaximumWidth = 9,
    InvalidEditorValue = 10,
    InvalidColumn = 11,
    EditorNotRegistered = 12,
    AlienProperty = 13,
    InvalidRecordset = 14,
    InvalidAction = 15,
    InvalidPropertyObject = 16
};
const wchar_t* ErrorText(ErrorCode code);
HRESULT ErrorNumber(ErrorCode code);

struct AutomationError {
    HRESULT number = E_FAIL;
    std::wstring source;
    std::wstring description;
    std::wstring helpFile;
};

// Raises one of the library's errors with its fixed text.
[[noreturn]] void Raise(ErrorCode code, std::wstring source = kLibraryTitle);
// Raises any error. A number that is no failure becomes E_FAIL.
[[noreturn]] void Raise(HRESULT number, std::wstring description, std::wstring source = kLibraryTitle,
                        std::wstring helpFile = {});
// Raises a failed call as the AutomationError that the called object described, else with the system's text.
void Check(HRESULT hr);
// The same of a plain function of the system, which leaves no description: with the system's text. What a value cannot
// be converted to is raised by the number that scripts know, 13 and 6.
inline constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x800A000D);
inline constexpr HRESULT kOverflow = static_cast<HRESULT>(0x800A0006);
void CheckSystem(HRESULT hr);
// Raises what scripts know as a position that a table does not have.
[[noreturn]] void RaiseBadPosition();
// E_POINTER for a null argument.
void CheckPointer(const void* pointer);

// Inside a catch block: the exception in flight.
AutomationError CurrentError();
// Of a DISP_E_EXCEPTION: the error that the callee described. Frees the strings.
AutomationError TakeException(EXCEPINFO& exception);
// Of a failed call: the thread's error information, taken off the thread, else the system's text.
AutomationError TakeErrorInfo(HRESULT hr);
// Leaves the error as the thread's error information, as raised by the interface. Returns its number.
HRESULT PublishError(REFIID iid, const AutomationError& error) noexcept;
// Inside a catch block: PublishError of the exception in flight.
HRESULT PublishCurrentError(REFIID iid) noexcept;
// The system's text of a number, without line ends.
std::wstring SystemText(HRESULT number);

// The body of a COM method: an exception becomes HRESULT and error information. A body may return an HRESULT of its
// own.
template <class F> HRESULT Guarded(REFIID iid, F&& body) noexcept {
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<F>>) {
            std::forward<F>(body)();
            return S_OK;
        } else {
            static_assert(std::is_same_v<std::invoke_result_t<F>, HRESULT>, "a body returns nothing or an HRESULT");
            return std::forward<F>(body)();
        }
    } catch (...) {
        return PublishCurrentError(iid);
    }
}

// Runs the body, whatever comes of it; true when it succeeded. For the width of one statement.
template <class F> bool IgnoringFailures(F&& body) noexcept {
    try {
        if constexpr (std::is_same_v<std::invoke_result_t<F>, HRESULT>) {
            return SUCCEEDED(std::forward<F>(body)());
        } else {
            std::forward<F>(body)();
            return true;
        }
    } catch (...) {
        return false;
    }
}

} // namespace ormisk
