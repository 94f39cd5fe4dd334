#include "records/RecordEvents.h"

#include "automation/DispatchObject.h"
#include "automation/Give.h"

namespace ormisk::records {

const IID kFormerEvents = {0x00000266, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};

namespace {

// What went wrong, as a handler is told.
class EventError final : public DispatchObject<::Error, void> {
public:
    explicit EventError(AutomationError error) : m_Error(std::move(error)) {}

    STDMETHODIMP get_Number(LONG* number) override {
        return Answer([&] { Give(number, m_Error.number); });
    }
    STDMETHODIMP get_Source(BSTR* source) override {
        return Answer([&] { Give(source, m_Error.source); });
    }
    STDMETHODIMP get_Description(BSTR* text) override {
        return Answer([&] { Give(text, m_Error.description); });
    }
    STDMETHODIMP get_HelpFile(BSTR* file) override {
        return Answer([&] { Give(file, m_Error.helpFile); });
    }
    STDMETHODIMP get_HelpContext(LONG* context) override {
        return Answer([&] { Give(context, 0); });
    }
    STDMETHODIMP get_SQLState(BSTR* state) override {
        return Answer([&] { Give(state, std::wstring()); });
    }
    STDMETHODIMP get_NativeError(LONG* error) override {
        return Answer([&] { Give(error, 0); });
    }

private:
    template <class F> static HRESULT Answer(F body) { return Guarded(__uuidof(::Error), body); }

    const AutomationError m_Error;
};

_variant_t ByReference(long& value) {
    _variant_t variant;
    V_VT(&variant) = VT_BYREF | VT_I4;
    V_I4REF(&variant) = &value;
    return variant;
}

} // namespace

void RecordEvents::Fire(RecordEvent event, std::vector<_variant_t> arguments, long& status) {
    arguments.push_back(ByReference(status));
    arguments.emplace_back(m_Recordset);
    std::vector<VARIANT> plain(arguments.begin(), arguments.end()); // borrows
    struct Within {
        explicit Within(int& depth) : depth(depth) { ++depth; }
        ~Within() { --depth; }
        int& depth;
    } const within(m_Depth);
    const auto id = static_cast<DISPID>(event);
    for (const auto& sink : m_Points.SinksOf(kFormerEvents)) {
        std::vector<VARIANT> reversed(plain.rbegin(), plain.rend());
        DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        // A sink of a dispatch interface is an IDispatch.
        static_cast<IDispatch*>(sink.Get())
            ->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }
    m_Points.Fire(id, plain.data(), static_cast<UINT>(plain.size()));
}

bool RecordEvents::Will(RecordEvent event, std::vector<_variant_t> arguments) {
    constexpr int kDeepest = 12;
    if (m_Depth >= kDeepest)
        Raise(Failure::IllegalOperation);
    long status = adStatusOK;
    Fire(event, std::move(arguments), status);
    return status != adStatusCancel;
}

void RecordEvents::Complete(RecordEvent event, std::vector<_variant_t> arguments, const AutomationError* error) {
    long status = error ? adStatusErrorsOccurred : adStatusOK;
    ComPtr<EventError> object;
    if (error)
        object = MakeObject<EventError>(*error);
    arguments.emplace_back(static_cast<IDispatch*>(object.Get()));
    Fire(event, std::move(arguments), status);
}

void RecordEvents::EndOfRecordset() {
    VARIANT_BOOL more = VARIANT_FALSE;
    _variant_t variant;
    V_VT(&variant) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&variant) = &more;
    long status = adStatusOK;
    Fire(RecordEvent::EndOfRecordset, {variant}, status);
}

} // namespace ormisk::records
