#include "GridContainer.h"
#include "ModelTestTools.h"

#include "automation/ByName.h"
#include "automation/ClassFactory.h"
#include "automation/EnumVariants.h"

#include <stdexcept>

namespace ormisk {
namespace {

// A public object whose members do what a test needs of them.
class Item : public DispatchObject<::_CListItem, ::CListItem, ::__CListItems> {
public:
    std::function<void()> onSetText = [] {};
    std::wstring text;
    _variant_t value;
    bool* gone = nullptr;

    STDMETHODIMP get_Value(VARIANT* result) override {
        return Guarded(__uuidof(::_CListItem), [&] { *result = Plain(value).Detach(); });
    }
    STDMETHODIMP put_Value(VARIANT newValue) override {
        return Guarded(__uuidof(::_CListItem), [&] { value = Plain(newValue); });
    }
    STDMETHODIMP get_Text(BSTR* result) override {
        return Guarded(__uuidof(::_CListItem), [&] { *result = NewBstr(text); });
    }
    STDMETHODIMP put_Text(BSTR newText) override {
        return Guarded(__uuidof(::_CListItem), [&] {
            text = FromBstr(newText);
            onSetText();
        });
    }

protected:
    void FinalRelease() override {
        // What a dying object calls may take and give back references.
        const ComPtr<IDispatch> self(this);
        if (gone)
            *gone = true;
    }
};

// A host's event sink.
class Sink : public HostObject {
public:
    Sink() : HostObject(__uuidof(::__CListItems)) {}
    std::function<HRESULT(DISPID, DISPPARAMS&, EXCEPINFO&)> onEvent;
    int calls = 0;

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* exception,
                        UINT*) override {
        ++calls;
        return onEvent ? onEvent(id, *parameters, *exception) : S_OK;
    }
};

DWORD Connect(IDispatch* object, Sink& sink) { return ormisk::Connect(object, sink.source, &sink); }
HRESULT Disconnect(IDispatch* object, Sink& sink, DWORD cookie) {
    return PointOf(object, sink.source)->Unadvise(cookie);
}

// Without a place for error information.
HRESULT PutText(IDispatch* item) {
    _variant_t text(L"x");
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS one{&text, &put, 1, 1};
    return item->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &one, nullptr, nullptr, nullptr);
}

using Automation = test::LeakTest;

TEST_F(Automation, ALateBoundCallerLosesNumberSourceTextOrHelpFileOfAnError) {
    auto item = MakeObject<Item>();
    _variant_t text(L"x");
    const auto putText = [&] { InvokeByName(item.Get(), L"Text", DISPATCH_PROPERTYPUT, &text); };

    item->onSetText = [] {
        Raise(ErrorNumber(ErrorCode::InvalidPropertyValue), L"Separator : \x00e4", kLibraryTitle, L"16");
    };
    const AutomationError error = FailureOf(putText);
    EXPECT_EQ(error.number, static_cast<HRESULT>(0x80040002));
    EXPECT_EQ(error.source, L"OrmiskGrid");
    EXPECT_EQ(error.description, L"Separator : \x00e4");
    EXPECT_EQ(error.helpFile, L"16");
}

TEST_F(Automation, AnExceptionEscapesAMethodOrReachesTheCallerWithoutErrorInformation) {
    auto item = MakeObject<Item>();
    const auto numberAndText = [&](std::function<void()> body) {
        item->onSetText = std::move(body);
        const HRESULT hr = item->put_Text(nullptr);
        return std::pair(hr, TakeErrorInfo(hr).description);
    };
    EXPECT_EQ(numberAndText([] { throw std::runtime_error("out of order"); }),
              std::pair(E_FAIL, std::wstring(L"out of order")));
    EXPECT_EQ(numberAndText([] { throw std::bad_alloc(); }).first, E_OUTOFMEMORY);
    EXPECT_EQ(numberAndText([] { throw 1; }).first, E_UNEXPECTED);
    EXPECT_EQ(numberAndText([] { _com_issue_error(DISP_E_TYPEMISMATCH); }).first, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(numberAndText([] { Raise(S_OK, L"no failure"); }), std::pair(E_FAIL, std::wstring(L"no failure")));
    EXPECT_EQ(Query<ISupportErrorInfo>(item)->InterfaceSupportsErrorInfo(__uuidof(::_CListItem)), S_OK);
}

TEST_F(Automation, AnErrorOfAnEarlierCallIsBlamedOnALaterOne) {
    auto item = MakeObject<Item>();
    PublishError(IID_NULL, {E_ACCESSDENIED, L"elsewhere", L"long ago", {}});
    item->onSetText = [] { throw AutomationError{E_INVALIDARG, L"here", L"just now", {}}; };
    _variant_t text(L"x");
    const AutomationError error = FailureOf([&] { InvokeByName(item.Get(), L"Text", DISPATCH_PROPERTYPUT, &text); });
    EXPECT_EQ(error.description, L"just now");

    PublishError(IID_NULL, {E_ACCESSDENIED, L"elsewhere", L"long ago", {}});
    InvokeByName(item.Get(), L"Text", DISPATCH_PROPERTYGET);
    ComPtr<IErrorInfo> left;
    EXPECT_EQ(GetErrorInfo(0, left.GetAddressOf()), S_FALSE);
}

TEST_F(Automation, AWrongLateBoundCallIsTakenForAFailureOfTheMember) {
    auto item = MakeObject<Item>();
    EXPECT_EQ(FailureOf([&] { InvokeByName(item.Get(), L"NoSuchMember", DISPATCH_METHOD); }).number,
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(FailureOf([] { InvokeByName(nullptr, L"Text", DISPATCH_PROPERTYGET); }).number, E_POINTER);
    DISPPARAMS none{};
    EXPECT_EQ(item->Invoke(4711, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(item->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(item->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_POINTER);
    // A raised error without a place to put it.
    item->onSetText = [] { Raise(ErrorCode::InvalidKey); };
    EXPECT_EQ(PutText(item.Get()), DISP_E_EXCEPTION);
}

TEST_F(Automation, AnObjectDiesInTheMiddleOfItsOwnMemberOrTwice) {
    bool gone = false;
    auto item = MakeObject<Item>();
    item->gone = &gone;
    Item* raw = item.Get();
    bool aliveInside = false;
    raw->onSetText = [&] {
        item.Reset();
        aliveInside = !gone;
    };
    EXPECT_EQ(PutText(raw), S_OK);
    EXPECT_TRUE(aliveInside);
    EXPECT_TRUE(gone);
}

TEST_F(Automation, AHostFindsAWrongClassSourceOrIdentity) {
    auto item = MakeObject<Item>();
    EXPECT_EQ(NameOf(test::Read(Query<IProvideClassInfo>(item), &IProvideClassInfo::GetClassInfo).Get()), L"CListItem");
    GUID source;
    EXPECT_EQ(Query<IProvideClassInfo2>(item)->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
    EXPECT_EQ(source, __uuidof(::__CListItems));
    EXPECT_EQ(Query<IProvideClassInfo2>(item)->GetGUID(99, &source), E_INVALIDARG);

    const auto events = Query<IConnectionPointContainer>(item);
    EXPECT_TRUE(SameObject(item->Identity(), events.Get()));
    EXPECT_FALSE(SameObject(item->Identity(), MakeObject<Item>()->Identity()));
    auto point = PointOf(item->Identity(), __uuidof(::__CListItems));
    EXPECT_EQ(test::Read(point, &IConnectionPoint::GetConnectionPointContainer).Get(), events.Get());
    EXPECT_EQ(events->FindConnectionPoint(IID_IUnknown, point.ReleaseAndGetAddressOf()), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(item->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    ComPtr<IPersistFile> file;
    EXPECT_EQ(item.As(&file), E_NOINTERFACE);
    EXPECT_EQ(file.Get(), nullptr);
}

TEST_F(Automation, AnEventMissesASinkOrCallsOneThatHasLeft) {
    auto item = MakeObject<Item>();
    Sink first, second, third;
    const DWORD firstCookie = Connect(item.Get(), first);
    const DWORD secondCookie = Connect(item.Get(), second);
    const DWORD thirdCookie = Connect(item.Get(), third);
    // The first sink takes itself and its neighbour away while the event goes round.
    first.onEvent = [&](DISPID, DISPPARAMS&, EXCEPINFO&) {
        EXPECT_EQ(Disconnect(item.Get(), first, firstCookie), S_OK);
        EXPECT_EQ(Disconnect(item.Get(), second, secondCookie), S_OK);
        return S_OK;
    };
    item->Fire(1);
    item->Fire(1);
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(second.calls, 0);
    EXPECT_EQ(third.calls, 2);
    EXPECT_EQ(first.references, 1);
    EXPECT_EQ(Disconnect(item.Get(), first, firstCookie), CONNECT_E_NOCONNECTION);
    EXPECT_TRUE(item->HasListeners());

    item->SuspendEvents(true);
    EXPECT_FALSE(item->HasListeners());
    item->Fire(1);
    item->SuspendEvents(false);
    EXPECT_EQ(third.calls, 2);
    EXPECT_EQ(Disconnect(item.Get(), third, thirdCookie), S_OK);
    EXPECT_FALSE(item->HasListeners());

    // A sink that never leaves is let go with the object.
    Connect(item.Get(), third);
    item.Reset();
    EXPECT_EQ(third.references, 1);

    Sink alien;
    alien.source = IID_NULL;
    item = MakeObject<Item>();
    const auto point = PointOf(item->Identity(), __uuidof(::__CListItems));
    DWORD cookie = 1;
    EXPECT_EQ(point->Advise(&alien, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
}

TEST_F(Automation, EventArgumentsArriveReversedOrAreNotReadBackOrAFailingSinkStopsTheOthers) {
    auto item = MakeObject<Item>();
    Sink failing, deaf, last;
    Connect(item.Get(), failing);
    Connect(item.Get(), deaf);
    Connect(item.Get(), last);
    failing.onEvent = [](DISPID, DISPPARAMS&, EXCEPINFO& exception) {
        exception.wCode = 13;
        exception.bstrSource = SysAllocString(L"the host");
        exception.bstrDescription = SysAllocString(L"Type mismatch");
        return DISP_E_EXCEPTION;
    };
    deaf.onEvent = [](DISPID, DISPPARAMS&, EXCEPINFO&) { return DISP_E_MEMBERNOTFOUND; };
    last.onEvent = [](DISPID id, DISPPARAMS& parameters, EXCEPINFO&) {
        EXPECT_EQ(id, 7);
        EXPECT_EQ(parameters.cArgs, 2u);
        EXPECT_EQ(V_I4(&parameters.rgvarg[1]), 41);
        *V_BOOLREF(&parameters.rgvarg[0]) = VARIANT_TRUE;
        return S_OK;
    };
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT arguments[] = {_variant_t(41l), Reference(VT_BOOL, &cancel)};
    const AutomationError error = FailureOf([&] { item->Fire(7, arguments, 2); });
    EXPECT_EQ(error.number, static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(error.source, L"the host");
    EXPECT_EQ(error.description, L"Type mismatch");
    EXPECT_EQ(cancel, VARIANT_TRUE);
    EXPECT_EQ(deaf.calls, 1);
}

TEST_F(Automation, AnObjectReleasedInItsOwnEventDiesUnderTheEvent) {
    bool gone = false;
    auto item = MakeObject<Item>();
    item->gone = &gone;
    Sink sink, second;
    Connect(item.Get(), sink);
    Connect(item.Get(), second);
    sink.onEvent = [&](DISPID, DISPPARAMS&, EXCEPINFO&) {
        item.Reset();
        EXPECT_FALSE(gone);
        return S_OK;
    };
    item->Fire(1);
    EXPECT_TRUE(gone);
    EXPECT_EQ(second.calls, 1);
}

TEST_F(Automation, ValuesCompareUnlikeAutomationDoes) {
    const auto compare = [](const _variant_t& a, const _variant_t& b) {
        EXPECT_EQ(CompareValues(a, b), CompareValues(b, a));
        return CompareValues(a, b);
    };
    const _variant_t null = Null();
    EXPECT_EQ(compare(1l, L"1"), Comparison::Equal);
    EXPECT_EQ(compare(1l, 1.0), Comparison::Equal);
    EXPECT_EQ(compare(1l, L"1.5"), Comparison::Different);
    EXPECT_EQ(compare(1l, L"one"), Comparison::Different);
    EXPECT_EQ(compare(true, L"True"), Comparison::Equal);
    EXPECT_EQ(compare(true, L"-1"), Comparison::Equal);
    EXPECT_EQ(compare(true, -1l), Comparison::Equal);
    EXPECT_EQ(compare(L"a", L"A"), Comparison::Different);
    EXPECT_EQ(compare(ToVariant(std::wstring(L"a\0b", 3)), ToVariant(std::wstring(L"a\0c", 3))), Comparison::Different);
    EXPECT_EQ(compare(_variant_t(), L""), Comparison::Equal);
    EXPECT_EQ(compare(_variant_t(), 0l), Comparison::Equal);
    EXPECT_EQ(compare(_variant_t(), L"0"), Comparison::Different);
    EXPECT_EQ(compare(null, 1l), Comparison::Null);
    EXPECT_EQ(compare(null, null), Comparison::Null);
    EXPECT_EQ(compare(kMissing, 0l), Comparison::Different);

    // By reference, as a script passes its variables.
    _variant_t inner(5l);
    EXPECT_EQ(CompareValues(Reference(inner), _variant_t(L"5")), Comparison::Equal);
}

TEST_F(Automation, AnObjectInAValueIsTakenForAPlainOneOrTheOtherWayRound) {
    auto item = MakeObject<Item>();
    item->value = L"the default";
    _variant_t held(static_cast<IDispatch*>(item.Get()));
    const VARIANT byReference = Reference(held);
    EXPECT_TRUE(HoldsObject(held));
    EXPECT_TRUE(HoldsObject(kNothing));
    EXPECT_TRUE(HoldsObject(byReference));
    EXPECT_FALSE(HoldsObject(_variant_t(1l)));
    EXPECT_TRUE(SameObject(ObjectOf(byReference), item->Identity()));
    EXPECT_EQ(ObjectOf(kNothing), nullptr);
    EXPECT_EQ(ObjectOf(_variant_t(1l)), nullptr);
    EXPECT_TRUE(IsMissing(kMissing));
    EXPECT_FALSE(IsMissing(_variant_t()));
    EXPECT_EQ(TextOf(held), L"the default");
    EXPECT_FALSE(IsNumeric(held));
    EXPECT_FALSE(IsNumeric(kNothing));
    item->value = 3l;
    EXPECT_TRUE(IsNumeric(held));
}

TEST_F(Automation, TextOfAValueIsNotTheOneAScriptSees) {
    const _variant_t null = Null();
    EXPECT_EQ(TextOf(null), L"");
    EXPECT_EQ(TextOf(_variant_t()), L"");
    EXPECT_EQ(TextOf(_variant_t(true)), L"True");
    EXPECT_EQ(TextOf(_variant_t(-12l)), L"-12");
    EXPECT_EQ(TextOf(ToVariant(std::wstring(L"a\0b", 3))), std::wstring(L"a\0b", 3));
    EXPECT_EQ(FailureOf([] { TextOf(kMissing); }).number, kTypeMismatch);
    EXPECT_TRUE(IsNumeric(_variant_t(L" -1.5e3 ")));
    EXPECT_FALSE(IsNumeric(_variant_t(L"")));
    EXPECT_FALSE(IsNumeric(null));
}

TEST_F(Automation, AnEnumerationSkipsRepeatsOrLeaksItems) {
    auto item = MakeObject<Item>();
    const auto items = Query<IEnumVARIANT>(
        MakeEnumerator({_variant_t(1l), _variant_t(L"two"), _variant_t(static_cast<IDispatch*>(item.Get()))}));
    _variant_t got[3];
    ULONG fetched = 0;
    EXPECT_EQ(items->Next(2, got, &fetched), S_OK);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(TextOf(got[0]) + TextOf(got[1]), L"1two");
    ComPtr<IEnumVARIANT> clone;
    EXPECT_EQ(items->Clone(clone.GetAddressOf()), S_OK);
    _variant_t rest[3];
    EXPECT_EQ(items->Next(3, rest, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 1u);
    EXPECT_TRUE(SameObject(ObjectOf(rest[0]), item->Identity()));
    EXPECT_EQ(items->Skip(1), S_FALSE);
    EXPECT_EQ(clone->Skip(1), S_OK);
    _variant_t again;
    EXPECT_EQ(clone->Next(1, &again, nullptr), S_FALSE);
    EXPECT_EQ(clone->Reset(), S_OK);
    EXPECT_EQ(clone->Next(2, &again, nullptr), E_POINTER);
    EXPECT_EQ(clone->Next(1, &again, nullptr), S_OK);
    EXPECT_EQ(TextOf(again), L"1");
}

TEST_F(Automation, AClassObjectAggregatesOrTheModuleUnloadsUnderALock) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(ClassFactory<Item>::Give(IID_IClassFactory, reinterpret_cast<void**>(factory.GetAddressOf())), S_OK);
    ComPtr<::_CListItem> item;
    void** out = reinterpret_cast<void**>(item.GetAddressOf());
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersistFile, out), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(::_CListItem), out), S_OK);
    item.Reset();
    const long unlocked = LiveObjects();
    factory->LockServer(TRUE);
    EXPECT_GT(LiveObjects(), unlocked);
    factory->LockServer(FALSE);
    EXPECT_EQ(LiveObjects(), unlocked);
}

} // namespace
} // namespace ormisk
