#pragma once

#include "automation/Error.h"
#include "automation/NamedValues.h"
#include "automation/StoredForm.h"

namespace ormisk {

// The named values of a container's bag. The container's own log hears of what it could not give, and of what was
// refused.
class BagValues final : public NamedValues {
public:
    // Borrowed; with `all` values that are the default are kept as well.
    explicit BagValues(IPropertyBag* bag, IErrorLog* log = nullptr, bool all = false)
        : m_Bag(bag), m_Log(log), m_All(all) {}
    _variant_t Read(const wchar_t* name, const _variant_t& defaultValue) override;
    void Write(const wchar_t* name, const _variant_t& value, const _variant_t& defaultValue) override;
    void Refused(const wchar_t* name, const AutomationError& error) override;

private:
    ComPtr<IPropertyBag> m_Bag;
    ComPtr<IErrorLog> m_Log;
    bool m_All;
};

// Named values that stand in a stream. All of them are kept, so that a later version may have other defaults.
class StreamValues final : public NamedValues {
public:
    StreamValues() = default;
    // Reads up to the end of the store, or of the stream. What is damaged, or cannot be read, is left out.
    explicit StreamValues(IStream* stream);
    void Save(IStream* stream) const; // raises
    std::uint64_t Size() const;       // in bytes

    _variant_t Read(const wchar_t* name, const _variant_t& defaultValue) override;
    void Write(const wchar_t* name, const _variant_t& value, const _variant_t& defaultValue) override;

private:
    std::vector<StoredValue> m_Values;
};

} // namespace ormisk
