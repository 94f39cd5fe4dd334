#include "ExtendedControl.h"

#include "CallArguments.h"
#include "ControlSite.h"
#include "Failure.h"
#include "Text.h"

#include <mshtmdid.h>
#include <oleauto.h>

#include <cwchar>
#include <exception>
#include <stdexcept>
#include <string>

namespace ormisk {
namespace {

// The numbers of the members of extended controls; those without a common number follow.
constexpr DISPID kBase = static_cast<DISPID>(0x80010000);
enum ExtendedId : DISPID {
    kName = kBase,
    kLeft = kBase + 3,
    kTop = kBase + 4,
    kWidth = kBase + 5,
    kHeight = kBase + 6,
    kVisible = kBase + 7,
    kParent = kBase + 8,
    kTag = kBase + 0xB,
    kTabStop = kBase + 0xE,
    kTabIndex = kBase + 0xF,
    kHelpContextId = kBase + 0x32,
    kToolTipText = kBase + 0x45,
    kObject = kBase + 0x100,
    kAlign = kBase + 0x101,
    kMove = kBase + 0x102,
    kSetFocus = kBase + 0x103,
    kFills = kBase + 0x104,
};

using Side = LONG RECT::*;

long Get(const ControlSite& site, Side from, Side to) {
    const RECT& place = site.Place();
    return place.*to - place.*from;
}

constexpr int kFarthest = 32000; // a place or a size, in pixels

int Checked(int pixels) {
    if (pixels < -kFarthest || pixels > kFarthest)
        throw Failure{L"A place is at most " + std::to_wstring(kFarthest) + L" away"};
    return pixels;
}

// The far side goes along when the near one moves.
void Put(ControlSite& site, Side near_, Side far_, long origin) {
    RECT place = site.Place();
    Checked(static_cast<int>(origin));
    place.*far_ += origin - place.*near_;
    place.*near_ = origin;
    site.MoveTo(place);
}

void PutSize(ControlSite& site, Side near_, Side far_, int size) {
    if (Checked(size) < 0)
        throw Failure{L"A size is not negative"};
    RECT place = site.Place();
    place.*far_ = place.*near_ + size;
    site.MoveTo(place);
}

} // namespace

struct ExtendedControl::Member {
    const wchar_t* name = nullptr;
    DISPID id = DISPID_UNKNOWN;
    _variant_t (*get)(ControlSite&) = nullptr;
    void (*put)(ControlSite&, const CallArguments&) = nullptr; // null when it is read only
    bool method = false;
};

const ExtendedControl::Member ExtendedControl::kMembers[] = {
    {L"Name", kName, [](ControlSite& s) { return _variant_t(s.Name().c_str()); }, nullptr},
    {L"Object", kObject, [](ControlSite& s) { return _variant_t(s.Automation().Get()); }, nullptr},
    {L"Parent", kParent, [](ControlSite& s) { return _variant_t(s.Parent()); }, nullptr},
    {L"Left", kLeft, [](ControlSite& s) { return _variant_t(s.Place().left); },
     [](ControlSite& s, const CallArguments& a) { Put(s, &RECT::left, &RECT::right, a.Integer(0)); }},
    {L"Top", kTop, [](ControlSite& s) { return _variant_t(s.Place().top); },
     [](ControlSite& s, const CallArguments& a) { Put(s, &RECT::top, &RECT::bottom, a.Integer(0)); }},
    {L"Width", kWidth, [](ControlSite& s) { return _variant_t(Get(s, &RECT::left, &RECT::right)); },
     [](ControlSite& s, const CallArguments& a) { PutSize(s, &RECT::left, &RECT::right, a.Integer(0)); }},
    {L"Height", kHeight, [](ControlSite& s) { return _variant_t(Get(s, &RECT::top, &RECT::bottom)); },
     [](ControlSite& s, const CallArguments& a) { PutSize(s, &RECT::top, &RECT::bottom, a.Integer(0)); }},
    {L"Fills", kFills, [](ControlSite& s) { return _variant_t(s.Fills()); },
     [](ControlSite& s, const CallArguments& a) { s.SetFills(a.Integer(0) != 0); }},
    {L"Visible", kVisible, [](ControlSite& s) { return _variant_t(s.IsVisible()); },
     [](ControlSite& s, const CallArguments& a) { s.Show(a.Integer(0) != 0); }},
    {L"TabIndex", kTabIndex, [](ControlSite& s) { return _variant_t(s.TabIndex()); },
     [](ControlSite& s, const CallArguments& a) { s.SetTabIndex(a.Integer(0)); }},
    {L"TabStop", kTabStop, [](ControlSite& s) { return _variant_t(s.IsTabStop()); },
     [](ControlSite& s, const CallArguments& a) { s.SetTabStop(a.Integer(0) != 0); }},
    {L"ToolTipText", kToolTipText, [](ControlSite& s) { return _variant_t(s.ToolTip().c_str()); },
     [](ControlSite& s, const CallArguments& a) { s.SetToolTip(a.Text(0)); }},
    {L"Align", kAlign, [](ControlSite& s) { return _variant_t(static_cast<long>(s.Alignment())); },
     [](ControlSite& s, const CallArguments& a) { s.SetAlignment(a.Integer(0)); }},
    {L"Tag", kTag, [](ControlSite& s) { return _variant_t(s.Tag().c_str()); },
     [](ControlSite& s, const CallArguments& a) { s.SetTag(a.Text(0)); }},
    {L"HelpContextID", kHelpContextId, [](ControlSite& s) { return _variant_t(s.HelpContext()); },
     [](ControlSite& s, const CallArguments& a) { s.SetHelpContext(a.Integer(0)); }},
    {L"Move", kMove, nullptr,
     [](ControlSite& s, const CallArguments& a) {
         if (a.Count() != 4)
             throw Failure{L"Move takes 4 arguments"};
         const int left = Checked(a.Integer(0));
         const int top = Checked(a.Integer(1));
         const RECT place{left, top, left + Checked(a.Integer(2)), top + Checked(a.Integer(3))};
         s.MoveTo(place);
     },
     true},
    {L"SetFocus", kSetFocus, nullptr,
     [](ControlSite& s, const CallArguments&) { s.Activate(OLEIVERB_UIACTIVATE, nullptr); }, true},
};

const ExtendedControl::Member* ExtendedControl::MemberOf(const wchar_t* name) {
    for (const Member& member : kMembers)
        if (_wcsicmp(member.name, name) == 0)
            return &member;
    return nullptr;
}

_variant_t ExtendedControl::Value(const wchar_t* name) const {
    const Member* const member = MemberOf(name);
    if (!m_Site || !member || !member->get)
        throw Failure{L"The form knows no " + std::wstring(name) + L" of the control"};
    return member->get(*m_Site);
}

void ExtendedControl::SetValue(const wchar_t* name, const _variant_t& value) {
    const Member* const member = MemberOf(name);
    if (!m_Site || !member || !member->put || member->method)
        throw Failure{L"The form knows no " + std::wstring(name) + L" of the control"};
    _variant_t given = value;
    DISPPARAMS passed{&given, nullptr, 1, 0};
    member->put(*m_Site, CallArguments(passed));
}

ComPtr<IDispatch> ExtendedControl::Inner() const { return m_Site ? m_Site->Automation() : nullptr; }

STDMETHODIMP ExtendedControl::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    if (const Member* const member = count == 1 ? MemberOf(names[0]) : nullptr) {
        ids[0] = member->id;
        return S_OK;
    }
    const ComPtr<IDispatch> inner = Inner();
    return inner ? inner->GetIDsOfNames(reserved, names, count, locale, ids) : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ExtendedControl::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* passed,
                                     VARIANT* result, EXCEPINFO* error, UINT* argumentError) {
    const ComPtr<ExtendedControl> alive(this);
    const Member* found = nullptr;
    for (const Member& member : kMembers)
        if (member.id == id)
            found = &member;
    if (!found) {
        const ComPtr<IDispatch> inner = Inner();
        return inner ? inner->Invoke(id, reserved, locale, flags, passed, result, error, argumentError)
                     : DISP_E_MEMBERNOTFOUND;
    }
    if (!m_Site)
        return RPC_E_DISCONNECTED;
    const ComPtr<ControlSite> site(m_Site);
    try {
        const CallArguments arguments(*passed);
        if (found->method ? flags & DISPATCH_METHOD : flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
            if (!found->put || (!found->method && arguments.Count() != 1))
                return DISP_E_MEMBERNOTFOUND;
            found->put(*site.Get(), arguments);
            return S_OK;
        }
        if (!found->get || !(flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)))
            return DISP_E_MEMBERNOTFOUND;
        if (arguments.Count() != 0)
            return DISP_E_BADPARAMCOUNT;
        _variant_t value = found->get(*site.Get());
        if (result)
            *result = value.Detach();
        return S_OK;
    } catch (const Failure& failure) {
        return Explain(error, failure.text);
    } catch (const std::exception& failure) {
        return Explain(error, Widen(failure.what()));
    } catch (const _com_error& failure) {
        return failure.Error();
    }
}

} // namespace ormisk
