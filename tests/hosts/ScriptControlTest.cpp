#include "AtlContainer.h"

namespace ormisk::test {
namespace {

// The system's script control with a grid of a container as its object.
class GridInScriptControl : public GridInContainer {
protected:
    static LateBound ScriptControl() {
        CLSID id = {};
        ComPtr<IDispatch> control;
        if (FAILED(CLSIDFromProgID(L"MSScriptControl.ScriptControl", &id)) ||
            FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control))))
            return {};
        return LateBound(control.Get());
    }
};

TEST_F(GridInScriptControl, ScriptsOfOtherHostsUseTheGrid) {
    const LateBound control = ScriptControl();
    if (!control)
        GTEST_SKIP() << "this system has no script control";
    for (const wchar_t* language : {L"VBScript", L"JScript"}) {
        AtlContainer host;
        control.Put(L"Language", language);
        control.Call(L"AddObject", {L"Grid", _variant_t(host.grid.Dispatch())});
        const bool basic = std::wstring_view(language) == L"VBScript";
        control.Call(L"ExecuteStatement", {basic ? L"Grid.Properties.Add \"Width\", 12, \"Size\", \"w\""
                                                 : L"Grid.Properties.Add(\"Width\", 12, \"Size\", \"w\");"});
        control.Call(L"ExecuteStatement",
                     {basic ? L"Grid.Properties(\"w\").Value = 13" : L"Grid.Properties(\"w\").Value = 13;"});
        EXPECT_EQ(static_cast<long>(control.Call(L"Eval", {L"Grid.Properties.Count"})), 1);
        EXPECT_EQ(static_cast<long>(control.Call(L"Eval", {L"Grid.Properties(\"w\").Value"})), 13);
        EXPECT_EQ(control.Call(L"Eval", {L"Grid.Properties(1).FormattedText"}), _variant_t(L"13"));
        EXPECT_EQ(host.properties.Object(L"Item", {L"w"}).Get(L"Category"), _variant_t(L"Size"));

        const wchar_t* again = basic ? L"Grid.Properties.Add \"Other\", 1, \"\", \"W\""
                                     : L"Grid.Properties.Add(\"Other\", 1, \"\", \"W\");";
        EXPECT_FALSE(control.Try(L"ExecuteStatement", DISPATCH_METHOD, {again}).Succeeded());
        EXPECT_EQ(static_cast<long>(host.properties.Get(L"Count")), 1);
        control.Call(L"Reset");
    }
}

} // namespace
} // namespace ormisk::test
