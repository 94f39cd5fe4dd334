// Controls on forms: the properties that the form adds come after those of the control.

#include "InspectTools.h"

#include "sources/SitedControl.h"
#include "sources/StandardControlProperties.h"

namespace ormisk::test {
namespace {

// The extended object of a control: properties of the form's own, and all of the control's.
class Extender : public Function {
public:
    explicit Extender(IDispatch* control) : Function([] {}), inner(control) {}
    ComPtr<IDispatch> inner;
    std::vector<std::pair<std::wstring, _variant_t>> values; // by name, at kFirst and up
    std::map<std::wstring, int> writes;

    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return inner->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        *ids = _wcsicmp(names[0], L"Object") == 0 ? kObject : DISPID_UNKNOWN;
        for (std::size_t i = 0; i < values.size(); ++i)
            if (_wcsicmp(names[0], values[i].first.c_str()) == 0)
                *ids = kFirst + static_cast<DISPID>(i);
        return *ids != DISPID_UNKNOWN ? S_OK : inner->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override {
        if (id == kObject) {
            _variant_t object(inner.Get());
            return VariantCopy(result, &object);
        }
        if (id < kFirst)
            return inner->Invoke(id, iid, locale, flags, parameters, result, exception, badArgument);
        auto& [name, value] = values[static_cast<std::size_t>(id - kFirst)];
        if (flags & DISPATCH_PROPERTYGET)
            return VariantCopy(result, &value);
        ++writes[name];
        return VariantCopyInd(&value, parameters->rgvarg);
    }

private:
    static constexpr DISPID kObject = 5000;
    static constexpr DISPID kFirst = 5001;
};

class Form : public GridContainer {
public:
    Form() : extender(grid.Get()) {}
    ~Form() { extender.inner = nullptr; }
    Extender extender;
    STDMETHODIMP GetExtendedControl(IDispatch** extended) override { return *extended = &extender, S_OK; }
};

TEST_F(InspectTest, OnlyTheExtendedObjectOfASiteIsAControlOnAForm) {
    Form form;
    EXPECT_TRUE(InnerControl(&form.extender).has_value());
    EXPECT_FALSE(InnerControl(form.grid.Get()).has_value()) << "the bare control";
    Extender stranger(form.grid.Get()); // has the member, but the site does not know it
    EXPECT_FALSE(InnerControl(&stranger).has_value());
    EXPECT_FALSE(InnerControl(Inspected().Get()).has_value());
    EXPECT_FALSE(InnerControl(nullptr).has_value());
}

TEST_F(InspectTest, PropertiesOfTheFormFollowThoseOfTheControlUnlessItHasThemItself) {
    Form form;
    GridContainer host;
    form.extender.values = {{L"Left", 10L},
                            {L"Visible", true},
                            {L"Align", 1L},
                            {L"Cancel", false},
                            {L"Enabled", true},
                            {L"DragIcon", static_cast<IDispatch*>(nullptr)},
                            {L"HelpContextId", 0L},
                            {L"MousePointer", short{0}},
                            {L"DragMode", static_cast<IDispatch*>(nullptr)}}; // no plain value, so no row
    host.events.on[L"AddingProperty"] = [](const EventCall& call) {
        if (TextOf(call[0]) == L"Left")
            *V_I4REF(&call[2]) = omTextEditor;
    };
    host.events.quiet = {L"AddingProperty", L"PropertyAdded"};
    ASSERT_TRUE(Load(host.grid.Get(), &form.extender));
    std::wstring names;
    for (long i = 49; i <= host.Count(); ++i)
        names += PropertyName(host.Item(i).Get()) + L" ";
    EXPECT_EQ(names, L"Cancel DragIcon MousePointer Visible HelpContextId Left Align ");

    EXPECT_EQ(Read(host.Item(L"Position_Left"), &_CProperty::get_EditorType), omTextEditor)
        << "the host's choice holds here";
    EXPECT_EQ(Read(host.Item(L"Behavior_Cancel"), &_CProperty::get_ReadOnly), VARIANT_TRUE);
    EXPECT_EQ(form.extender.writes[L"Left"], 1);
    EXPECT_EQ(form.extender.writes[L"Visible"], 0) << "a control may not vanish for a test";
    EXPECT_EQ(form.extender.writes[L"Enabled"], 1) << "the control's own member is written through the form";

    ComPtr<_CListItem> item;
    Read(host.Item(L"Position_Align"), &_CProperty::get_ListItems)->get_Item(5, item.GetAddressOf());
    EXPECT_EQ(Read(item, &_CListItem::get_Value), _variant_t(4L));
    host.Item(L"Position_Left")->put_Value(_variant_t(25L));
    EXPECT_EQ(V_I4(&form.extender.values[0].second), 25);
    host.Clear();
}

} // namespace
} // namespace ormisk::test
