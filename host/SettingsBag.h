#pragma once

#include "ComObject.h"
#include "FormFile.h"

#include <oaidl.h>
#include <ocidl.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace ormisk {

// The settings of one control, which it reads and writes itself. What it could not take, and what it did not ask for,
// is told in sentences and is no failure.
class SettingsBag final : public ComObject<IPropertyBag, IErrorLog> {
public:
    using Tell = std::function<void(int line, const std::wstring& sentence)>; // line 0: of none

    SettingsBag(std::vector<FormSetting> settings, Tell tell)
        : m_Settings(std::move(settings)), m_Tell(std::move(tell)) {}

    const std::vector<FormSetting>& Settings() const { return m_Settings; }
    void TellUnread() const;

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* error) override;

private:
    std::vector<FormSetting> m_Settings;
    std::set<int> m_Read; // lines
    Tell m_Tell;
};

} // namespace ormisk
