// The palette with the system's colour dialog over it, and handlers that turn on the field in mid-use.

#include "PaletteTools.h"

#include "automation/Error.h"

namespace ormisk::test {
namespace {

TEST_F(PaletteTest, TheColorDialogClosesThePaletteOrFillsTheCellUnderTheMouse) {
    FieldInFrame in;
    const auto look = [&] {
        EXPECT_TRUE(in->IsPaletteOpen());
        EXPECT_FALSE(IsWindowEnabled(in->PaletteWindow()));
    };
    AskColor(in, look, IDOK);
    EXPECT_EQ(in.Heard(), "CustomColor0 Closed Color SelectedColor Color");
    const Color chosen = in->SelectedColor();
    EXPECT_EQ(in->GetCustomColor(0), chosen);
    EXPECT_EQ(in->GetCustomColor(5), 0xFFFFFFU) << "only a trigger";
    in.Heard();
    AskColor(in, {}, IDOK);
    EXPECT_EQ(in->GetCustomColor(1), chosen) << "the next in turn";
    in.Heard();
    AskColor(in, {}, IDCANCEL);
    EXPECT_EQ(in.Heard(), "Closed Color") << "told with the old colour";
    EXPECT_EQ(in->SelectedColor(), 0x0000FFU);
    EXPECT_EQ(in->GetCustomColor(2), 0xFFFFFFU);
}

TEST_F(PaletteTest, HandlersThatTurnOnTheFieldLeaveThingsBehindOrCrash) {
    const std::pair<const char*, std::function<void(FieldInFrame&)>> deeds[] = {
        {"destroys it", [](FieldInFrame& in) { in.field.reset(); }},
        {"hides it", [](FieldInFrame& in) { in->SetVisible(false); }},
        {"closes the palette", [](FieldInFrame& in) { in->ShowDropDown(false); }},
        {"opens the palette", [](FieldInFrame& in) { in->ShowDropDown(true); }},
        {"destroys the frame", [](FieldInFrame& in) { DestroyWindow(in.frame); }},
        {"sets another colour", [](FieldInFrame& in) { in->SelectedColor(in->SelectedColor() ^ 1); }},
        {"raises", [](FieldInFrame&) { Raise(E_FAIL, L"no"); }},
        {"lets messages through", [](FieldInFrame&) { FieldInFrame::Pump(); }},
    };
    const std::pair<const char*, std::function<void(FieldInFrame&)>> ways[] = {
        {"a click", [](FieldInFrame& in) { in.Click(in.Page(), in.Middle({false, 30})); }},
        {"ENTER", [](FieldInFrame& in) { in.Keys({VK_RIGHT, VK_RETURN}); }},
        {"a tab", [](FieldInFrame& in) { in.Click(in.Tabs(), {10, 10}); }},
        {"the dialog", [](FieldInFrame& in) { AskColor(in, {}, IDOK); }},
    };
    for (const char* event : {"Opened", "Closed", "Color", "SelectedColor", "Tab", "CustomColor0"})
        for (const auto& [deed, act] : deeds)
            for (const auto& [way, use] : ways) {
                if ((event == std::string("Opened") && way != std::string("a click")) ||
                    (event == std::string("Tab")) != (way == std::string("a tab")) ||
                    (event == std::string("CustomColor0") && way != std::string("the dialog")))
                    continue;
                SCOPED_TRACE(std::string(event) + ": a handler " + deed + " at " + way);
                FieldInFrame in;
                in->SelectedColor(0x0000FF);
                bool done = false;
                in.on[event] = [&] {
                    if (!std::exchange(done, true))
                        act(in);
                };
                in.Open();
                if (in.Page() && in->IsPaletteOpen())
                    use(in);
                EXPECT_TRUE(done);
                in.on.clear();
                if (!in.field || !in->hwnd())
                    continue;
                // The field goes on working.
                in->SetVisible(true);
                in->ShowDropDown(false);
                in->SelectedColor(0x0000FF);
                SetForegroundWindow(in.frame);
                in.Open();
                in.Click(in.Page(), in.Middle({false, 12}));
                EXPECT_EQ(in->SelectedColor(), PaletteColor(12));
            }
}

TEST_F(PaletteTest, AFieldThatEndsUnderTheDialogTakesTheProcessAlong) {
    const std::function<void(FieldInFrame&)> deeds[] = {
        [](FieldInFrame& in) { in.field.reset(); },
        [](FieldInFrame& in) { DestroyWindow(in.frame); },
        [](FieldInFrame& in) { in->ShowDropDown(false), PostMessageW(Dialog(), WM_COMMAND, IDOK, 0); },
    };
    for (const auto& deed : deeds) {
        FieldInFrame in;
        bool done = false;
        AskColor(in, [&] {
            done = true;
            deed(in);
        });
        EXPECT_TRUE(done);
        EXPECT_TRUE(Eventually([] { return !Dialog(); }));
    }
}

TEST_F(PaletteTest, AFieldThatIsLetGoInTheEndOfItsFrameEndsTwice) {
    for (const bool frameFirst : {true, false}) {
        FieldInFrame in;
        in.Open();
        in.on["Closed"] = [&] { in.field.reset(); };
        DestroyWindow(frameFirst ? in.frame : in->hwnd());
        EXPECT_FALSE(in.field);
    }
}

} // namespace
} // namespace ormisk::test
