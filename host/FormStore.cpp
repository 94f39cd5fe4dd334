#include "FormStore.h"

#include "Failure.h"
#include "Form.h"
#include "FormFile.h"
#include "FormVariant.h"
#include "SettingsBag.h"
#include "Text.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace ormisk {
namespace {

constexpr wchar_t kClass[] = L"Class";
constexpr wchar_t kFills[] = L"Fills";
constexpr LONG kLargestPlace = 32000;

// What the form keeps of a control, in the order in which it is put: first where it stands.
constexpr const wchar_t* kPlace[] = {L"Align", L"Left", L"Top", L"Width", L"Height", kFills};
constexpr const wchar_t* kOthers[] = {L"Visible", L"TabStop", L"ToolTipText", L"Tag", L"HelpContextID"};

bool IsIn(const auto& names, const std::wstring& name) {
    return std::any_of(std::begin(names), std::end(names),
                       [&](const wchar_t* known) { return IsSameName(known, name); });
}

// Tells what is wrong in a file, with its line where there is one.
SettingsBag::Tell TellOf(const std::wstring& path, const std::wstring& control) {
    return [path, control](int line, const std::wstring& sentence) {
        const std::wstring place = line > 0 ? path + L":" + std::to_wstring(line) : path;
        PrintLine(Stream::Error, place + L": " + (control.empty() ? L"" : control + L": ") + sentence);
    };
}

void KeepMembers(const ControlSite& site, FormControl& kept) {
    kept.members.push_back({kClass, site.ProgId()});
    const bool fills = site.Fills() && site.Alignment() == ControlSite::Align::None;
    for (const wchar_t* name : kPlace)
        if (!fills || name == kFills)
            kept.members.push_back({name, *ToFormValue(site.Extended()->Value(name))});
    for (const wchar_t* name : kOthers)
        kept.members.push_back({name, *ToFormValue(site.Extended()->Value(name))});
}

// Of a control without bags only the place is kept.
void KeepSettings(const ControlSite& site, const std::wstring& path, FormControl& kept) {
    ComPtr<IPersistPropertyBag> persistent;
    if (!site.Control() || FAILED(site.Control()->QueryInterface(IID_PPV_ARGS(&persistent))))
        return;
    const ComPtr<SettingsBag> bag = MakeCom<SettingsBag>(std::vector<FormSetting>(), TellOf(path, kept.name));
    Check(persistent->Save(bag.Get(), TRUE, TRUE), (L"The settings of " + kept.name + L" cannot be kept").c_str());
    kept.own = bag->Settings();
}

// A control of the file, with what it is to become.
struct Planned {
    FormControl wanted;
    std::wstring progId;
    ComPtr<ControlSite> site; // null while the form lacks it
};

std::wstring CannotCreate(const std::wstring& path, const std::wstring& progId) {
    return path + L": the control " + progId + L" cannot be created; it may not be registered";
}

CLSID ClassOf(const std::wstring& progId, const std::wstring& path) {
    CLSID id{};
    Check(CLSIDFromProgID(progId.c_str(), &id), CannotCreate(path, progId).c_str());
    return id;
}

// A control is made to find that out, before any is replaced.
void CheckControl(REFCLSID id, const std::wstring& progId, const std::wstring& path) {
    ComPtr<IOleObject> trial;
    Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&trial)),
          CannotCreate(path, progId).c_str());
}

// Without a class a control is that of the form.
std::vector<Planned> PlanOf(const Form& form, std::vector<FormControl> controls, const std::wstring& path) {
    std::vector<Planned> plan;
    for (FormControl& control : controls) {
        const ComPtr<ControlSite> site(form.Find(control.name));
        Planned planned{std::move(control), {}, site};
        const FormSetting* const named = FindSetting(planned.wanted.members, kClass);
        const std::wstring* const text = named ? std::get_if<std::wstring>(&named->value) : nullptr;
        if (text)
            planned.progId = *text;
        else if (planned.site)
            planned.progId = planned.site->ProgId();
        if (planned.progId.empty()) {
            TellOf(path, planned.wanted.name)(0, L"the file does not say of which class the control is");
            continue;
        }
        const CLSID id = ClassOf(planned.progId, path);
        if (!planned.site)
            CheckControl(id, planned.progId, path);
        else if (ClassOf(planned.site->ProgId(), path) != id)
            throw Failure{path + L": the form has a control " + planned.site->Name() + L" of another class"};
        plan.push_back(std::move(planned));
    }
    return plan;
}

// Where a new control is brought up; what is wrong with the numbers is told when they are put.
std::optional<RECT> FirstPlace(const FormControl& wanted) {
    const auto number = [&](const wchar_t* name) {
        const FormSetting* const member = FindSetting(wanted.members, name);
        const std::int32_t* const value = member ? std::get_if<std::int32_t>(&member->value) : nullptr;
        return std::clamp<LONG>(value ? *value : 0, 0, kLargestPlace);
    };
    const FormSetting* const fills = FindSetting(wanted.members, kFills);
    if (fills && fills->value == FormValue(true))
        return std::nullopt;
    return RECT{number(L"Left"), number(L"Top"), number(L"Left") + number(L"Width"),
                number(L"Top") + number(L"Height")};
}

void PutMembers(const ControlSite& site, const auto& names, const FormControl& wanted, const SettingsBag::Tell& tell) {
    for (const wchar_t* name : names) {
        const FormSetting* const member = FindSetting(wanted.members, name);
        if (!member)
            continue;
        try {
            site.Extended()->SetValue(name, FromFormValue(member->value));
        } catch (const Failure& failure) {
            tell(member->line, member->name + L": " + failure.text);
        }
    }
}

} // namespace

void SaveForm(const Form& form, const std::wstring& path) {
    std::vector<FormControl> controls;
    const std::vector<ComPtr<ControlSite>> sites = form.Sites();
    for (const ComPtr<ControlSite>& site : sites) {
        FormControl& kept = controls.emplace_back();
        kept.name = site->Name();
        KeepMembers(*site.Get(), kept);
        KeepSettings(*site.Get(), path, kept);
    }
    WriteUtf8File(path, WriteForm(controls));
}

void LoadForm(Form& form, const std::wstring& path, const std::function<void(ControlSite&)>& loaded) {
    FormContent content;
    try {
        content = ReadForm(ReadUtf8File(path));
    } catch (const std::invalid_argument& failure) {
        throw Failure{path + L" " + Widen(failure.what())};
    }
    std::vector<Planned> plan = PlanOf(form, std::move(content.controls), path);
    for (const FormTrouble& trouble : content.troubles)
        TellOf(path, {})(trouble.line, trouble.text);
    std::vector<ComPtr<ControlSite>> order;
    for (Planned& planned : plan) {
        const FormControl& wanted = planned.wanted;
        const SettingsBag::Tell tell = TellOf(path, wanted.name);
        const ComPtr<SettingsBag> bag = MakeCom<SettingsBag>(wanted.own, tell);
        if (planned.site)
            planned.site->Load(planned.progId, bag.Get());
        else
            planned.site = &form.Add(planned.progId, wanted.name, FirstPlace(wanted), bag.Get());
        bag->TellUnread();
        PutMembers(*planned.site.Get(), kPlace, wanted, tell);
        PutMembers(*planned.site.Get(), kOthers, wanted, tell);
        for (const FormSetting& member : wanted.members)
            if (!IsIn(kPlace, member.name) && !IsIn(kOthers, member.name) && !IsSameName(member.name, kClass))
                tell(member.line, L"the form keeps no " + member.name);
        order.push_back(planned.site);
        loaded(*planned.site.Get());
    }
    form.Arrange(order);
}

} // namespace ormisk
