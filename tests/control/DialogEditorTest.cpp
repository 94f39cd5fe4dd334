// Rows with a dialog: fonts, files, folders, pictures, and the host's own. How the dialogs open, what becomes of what
// is chosen, and what happens under them.

#include "DialogTools.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <wincodec.h>

namespace ormisk::test {
namespace {

struct Kind {
    const char* name;
    omEditorType type;
    _variant_t (*value)();
    const wchar_t* caption; // of the dialog
    const wchar_t* leave;   // what is heard when the row is left, nothing having been done
    bool keepsFocus;        // after F4: the field has it, or its box
};

const Kind kKinds[] = {
    {"font", omFontEditor, [] { return Object(MakeFont().Get()); }, L"Font", L"SelChanged B", true},
    {"file", omFileEditor, [] { return _variant_t(L"C:\\windows\\win.ini"); }, L"Select a file", L"SelChanged B", true},
    {"folder", omDirectoryEditor, [] { return _variant_t(L"C:\\windows"); }, L"Browse for Folder", L"SelChanged B",
     true},
    {"picture", omPictureEditor, [] { return kNothing; }, L"Open", L"SelChanged B", true},
};

const Deeds kOpenings = AndOpenings({
    {"a click on the button", [](GridContainer& host) { host.RealClick(ButtonOf(host), 4, 6); }},
    {"F4 in the field", [](GridContainer& host) { SetFocus(FieldOf(host)), host.RealKeys({VK_F4}); }},
});

void AnswerWith(const EventCall& call, _variant_t answer) { VariantCopy(V_VARIANTREF(&call[1]), &answer); }

bool HasFocus(const GridContainer& host) {
    return GetFocus() && (GetFocus() == FieldOf(host) || GetFocus() == BoxOf(host));
}

TEST_F(GridTest, ADialogOpensNotOrTwiceOrLeavesSomethingBehind) {
    for (const Kind& kind : kKinds) {
        GridContainer host;
        const auto row = host.Add(L"A", kind.value(), L"", kind.type);
        const auto next = host.Add(L"B");
        for (const auto& [name, open] : kOpenings) {
            SCOPED_TRACE(std::string(kind.name) + " by " + name);
            GoTo(host, row.Get());
            ASSERT_TRUE(ButtonOf(host));
            host.log.clear();
            InDialog dialog([&] {
                EXPECT_FALSE(IsWindowEnabled(host.window));
                EXPECT_EQ(host->StartPropertyEdit(row.Get()), S_OK); // it is open already
            });
            open(host);
            EXPECT_EQ(dialog.Seen(), 1);
            EXPECT_EQ(dialog.Caption(), kind.caption);
            EXPECT_TRUE(IsWindowEnabled(host.window));
            EXPECT_EQ(std::ranges::count(host.log, "EnableModeless 0"), 1);
            EXPECT_EQ(std::ranges::count(host.log, "EnableModeless 1"), 1);
            EXPECT_TRUE(HasFocus(host)) << "where the keys go";
            EXPECT_EQ(host.Heard(), L"");
        }
        host.Select(next.Get());
        EXPECT_EQ(host.Heard(), kind.leave);
    }
}

TEST_F(GridTest, AConfirmedFontIsNotStoredOrSharedOrAskedAboutTwice) {
    GridContainer host;
    const auto font = MakeFont(L"Tahoma", 9);
    const auto row = host.Add(L"A", Object(font.Get()), L"", omFontEditor);
    host.Add(L"B");
    GoTo(host, row.Get());
    EXPECT_EQ(FieldText(host), L"Tahoma");
    constexpr int kSizes = 1138;
    const auto confirm = [&](const std::function<void()>& choose) {
        const InDialog dialog(choose, IDOK);
        host.RealKeys({VK_F4});
    };
    confirm([] {
        SetDlgItemTextW(Dialog(), kSizes, L"12");
        SendMessageW(Dialog(), WM_COMMAND, MAKEWPARAM(kSizes, CBN_EDITCHANGE), 0);
    });
    EXPECT_EQ(host.Heard().substr(0, 16), L"ValidateValue A ");
    EXPECT_EQ(FontOf(row.Get()), L"Tahoma 1200");
    EXPECT_NE(ObjectOf(ValueOf(row.Get())), font.Get());
    EXPECT_EQ(Read(Query<IFont>(font), &IFont::get_Size).int64, 90000) << "the host's own font";
    // What the user has confirmed once is no change when the row is left, and a dialog without a change is none.
    host.Select(host.Item(2L).Get());
    EXPECT_EQ(host.Heard(), L"SelChanged B");
    GoTo(host, row.Get());
    confirm({});
    EXPECT_EQ(host.Heard(), L"");
    // Refused: the field shows what was chosen, the row what it has.
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    confirm([] { SetDlgItemTextW(Dialog(), kSizes, L"18"); });
    EXPECT_EQ(FontOf(row.Get()), L"Tahoma 1200");
    // ENTER and ESC do nothing here; a key of the rows goes to them.
    host.Heard();
    host.RealKeys({VK_RETURN, VK_ESCAPE});
    EXPECT_EQ(host.Heard(), L"");
    host.events.on.clear();
    host.RealKeys({VK_DOWN});
    EXPECT_EQ(GetFocus(), host.Tree());
    EXPECT_EQ(host.Selected(), L"B");
}

TEST_F(GridTest, AFontRowWithoutAFontFailsOrAWrongOneShows) {
    GridContainer host;
    const auto nothing = host.Add(L"A", kNothing, L"", omFontEditor);
    const auto font = MakeFont(L"Courier", 12);
    const auto other = host.Add(L"B", Object(font.Get()), L"", omFontEditor);
    const auto empty = host.Add(L"C", _variant_t(), L"", omFontEditor);
    GoTo(host, other.Get());
    EXPECT_EQ(FieldText(host), Read(Query<IFont>(font), &IFont::get_Name));
    GoTo(host, nothing.Get());
    EXPECT_TRUE(FieldOf(host));
    EXPECT_NE(FieldText(host), L"");
    GoTo(host, other.Get());
    EXPECT_NE(FontOf(nothing.Get()), L"");
    EXPECT_NE(FontOf(nothing.Get()), FontOf(other.Get())) << "the font of the row before";
    EXPECT_EQ(FailureOfCall(host->putref_SelectedProperty(empty.Get())),
              L"80040002|OrmiskGrid|Invalid property value.");
    EXPECT_FALSE(FieldOf(host));
    // Emptied by the host under its editor, which would write the former font back.
    GoTo(host, nothing.Get());
    nothing->put_Value(_variant_t());
    EXPECT_FALSE(FieldOf(host));
    GoTo(host, other.Get());
    EXPECT_EQ(V_VT(&static_cast<const VARIANT&>(ValueOf(nothing.Get()))), VT_EMPTY);
    // A name that no description of a font has room for, and sizes beyond all screens.
    const std::wstring longName(200, L'x');
    for (const auto& odd : {MakeFont(longName.c_str(), 8), MakeFont(L"Tahoma", 3000)}) {
        other->putref_Value(Object(odd.Get()));
        GoTo(host, other.Get());
        InDialog dialog;
        host.RealKeys({VK_F4});
        EXPECT_EQ(dialog.Seen(), 1);
        GoTo(host, nullptr);
    }
}

class TemporaryFolder {
public:
    TemporaryFolder() : m_Path(std::filesystem::temp_directory_path() / L"ormisk \x4F8B \x043F\x0440") {
        std::filesystem::create_directories(m_Path);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Path, ignored);
    }
    std::wstring Write(const std::wstring& name, const std::string& content) const {
        std::ofstream(m_Path / name, std::ios::binary) << content;
        return (m_Path / name).wstring();
    }
    std::wstring Path() const { return m_Path.wstring(); }

private:
    std::filesystem::path m_Path;
};

TEST_F(GridTest, AFileOfAnyNameIsNotStoredAtOnce) {
    const TemporaryFolder folder;
    const std::wstring path = folder.Write(L"\x4F8B\x5B50 \x05E9\x05DC\x05D5\x05DD \xD83D\xDE00.txt", "text");
    GridContainer host;
    // What is there before need not be a path at all.
    for (const _variant_t& before : {_variant_t(L"C:\\windows\\win.ini"), _variant_t(L"no|path<>:*?"), _variant_t(5L),
                                     _variant_t(), Null(), ToVariant(std::wstring(50000, L'x'))}) {
        const auto row = host.Add(L"A", before, L"", omFileEditor);
        GoTo(host, row.Get());
        {
            ChoosesFile chooses(path);
            host.RealKeys({VK_F4});
            EXPECT_EQ(chooses.Seen(), 1);
        }
        EXPECT_EQ(ValueText(row.Get()), path);
        EXPECT_EQ(host.Heard(), L"ValidateValue A " + path + L" False; PropertyValueChanged A");
        EXPECT_EQ(FieldText(host), path);
        GoTo(host, nullptr);
        host.Clear();
    }
}

TEST_F(GridTest, ThePathRowTakesWhatIsTypedOrLosesAFolder) {
    const TemporaryFolder folder;
    GridContainer host;
    const auto row = host.Add(L"A", ToVariant(folder.Path()), L"", omDirectoryEditor);
    const auto file = host.Add(L"B", L"C:\\windows\\win.ini", L"", omFileEditor);
    const auto choose = [&](std::initializer_list<WORD> keys) {
        InDialog dialog([] {}, IDOK); // the folder that is there
        host.RealKeys(keys);
        EXPECT_EQ(dialog.Seen(), 1);
    };
    GoTo(host, row.Get());
    row->put_Value(_variant_t(L"C:\\nowhere"));
    host.Heard();
    // The folder waits for ENTER; SPACE on the row opens its dialog as F4 does, and the box has the focus then.
    choose({VK_SPACE});
    EXPECT_EQ(GetFocus(), BoxOf(host));
    const std::wstring chosen = FieldText(host);
    EXPECT_NE(chosen, L"C:\\nowhere");
    EXPECT_EQ(host.Heard(), L"");
    host.RealKeys({'X', VK_DELETE});
    EXPECT_EQ(FieldText(host), chosen) << "only the dialog changes a path";
    host.RealKeys({VK_ESCAPE});
    EXPECT_EQ(FieldText(host), L"C:\\nowhere");
    EXPECT_EQ(GetFocus(), host.Tree());
    choose({VK_SPACE});
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    host.RealKeys({VK_RETURN});
    EXPECT_EQ(host.Heard(), L"ValidateValue A " + chosen + L" False") << "asked once";
    EXPECT_EQ(FieldText(host), chosen);
    host.events.on.clear();
    host.Select(file.Get());
    EXPECT_EQ(ValueText(row.Get()), L"C:\\nowhere") << "refused already";
    GoTo(host, row.Get());
    choose({VK_F4});
    host.Select(file.Get());
    EXPECT_EQ(host.Heard(), L"ValidateValue A " + chosen + L" False; PropertyValueChanged A; SelChanged B");
    EXPECT_EQ(ValueText(row.Get()), chosen);
    // On the field itself any key goes back to the rows, and one of theirs moves there.
    for (const WORD key : {WORD{'X'}, WORD{VK_UP}}) {
        GoTo(host, file.Get());
        SetFocus(FieldOf(host));
        host.RealKeys({key});
        EXPECT_EQ(GetFocus(), host.Tree());
        EXPECT_EQ(host.Selected(), key == VK_UP ? L"A" : L"B");
    }
    // A row that is left by code with the focus in its box leaves it to the rows.
    GoTo(host, file.Get());
    SetFocus(BoxOf(host));
    host.Select(row.Get());
    EXPECT_EQ(GetFocus(), host.Tree());
    // A dialog has the caption that its row gives it, to the letter.
    EXPECT_EQ(file->SetEditorParam(_bstr_t(L"DialogCaption"), _bstr_t(L" Own ")), S_OK);
    GoTo(host, nullptr);
    GoTo(host, file.Get());
    InDialog dialog;
    host.RealKeys({VK_F4});
    EXPECT_EQ(dialog.Caption(), L" Own ");
}

// Files of one point.
std::string Bitmap() {
    return std::string("BM:\0\0\0\0\0\0\0\x36\0\0\0", 14) + std::string("\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 16) +
           std::string(24, '\0') + std::string("\0\0\xFF\0", 4);
}
std::string Icon() {
    return std::string("\0\0\1\0\1\0\1\1\0\0\1\0\x20\0\x30\0\0\0\x16\0\0\0", 22) +
           std::string("\x28\0\0\0\1\0\0\0\2\0\0\0\1\0\x20\0", 16) + std::string(24, '\0') +
           std::string("\0\0\xFF\xFF\0\0\0\0", 8);
}
std::string Gif() { return std::string("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;", 35); }
// Written by the system's own coders.
std::wstring Encode(const std::wstring& path, REFGUID container) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory)));
    Check(factory->CreateStream(&stream));
    Check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    Check(factory->CreateEncoder(container, nullptr, &encoder));
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    Check(encoder->CreateNewFrame(&frame, nullptr));
    Check(frame->Initialize(nullptr));
    Check(frame->SetSize(8, 8));
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(frame->SetPixelFormat(&format));
    BYTE pixels[8 * 24] = {};
    Check(frame->WritePixels(8, 24, sizeof pixels, pixels));
    Check(frame->Commit());
    Check(encoder->Commit());
    return path;
}

long PictureTypeOf(const _variant_t& value) {
    const ComPtr<IPicture> picture = Query<IPicture>(ObjectOf(value));
    return picture ? Read(picture, &IPicture::get_Type) : -1;
}

TEST_F(GridTest, APictureFileOfSomeKindDoesNotLoadOrAnyOtherDoes) {
    const TemporaryFolder folder;
    HANDLE lock = INVALID_HANDLE_VALUE;
    const auto remove = [](const std::wstring& path) { std::filesystem::remove(path); };
    struct Case {
        std::wstring path;
        bool loads;
        std::function<void(const std::wstring&)> meanwhile; // after the user has chosen it
    };
    const Case cases[] = {
        {folder.Write(L"a.bmp", Bitmap()), true, {}},
        {folder.Write(L"a.ico", Icon()), true, {}},
        {folder.Write(L"a.gif", Gif()), true, {}},
        {Encode(folder.Path() + L"\\\x4F8B.png", GUID_ContainerFormatPng), true, {}},
        {Encode(folder.Path() + L"\\a.jpg", GUID_ContainerFormatJpeg), true, {}},
        {folder.Write(L"text.bmp", "no picture"), false, {}},
        {folder.Write(L"cut.gif", Gif().substr(0, 10)), false, {}},
        {folder.Write(L"empty.bmp", ""), false, {}},
        {folder.Write(L"missing.bmp", Bitmap()), false, remove},
        {folder.Write(L"folder.bmp", Bitmap()), false,
         [&](const std::wstring& path) { remove(path), std::filesystem::create_directory(path); }},
        {folder.Write(L"locked.bmp", Bitmap()), false,
         [&](const std::wstring& path) {
             lock = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::filesystem::path(c.path).filename().string());
        GridContainer host;
        const auto row = host.Add(L"A", Object(MakePicture(true).Get()), L"", omPictureEditor);
        GoTo(host, row.Get());
        EXPECT_EQ(FieldText(host), L"(Picture)");
        host.events.on[L"ValidateValue"] = [&](const EventCall&) {
            if (c.meanwhile)
                c.meanwhile(c.path);
        };
        {
            ChoosesFile chooses(c.path);
            host.RealKeys({VK_F4});
        }
        EXPECT_EQ(PictureTypeOf(ValueOf(row.Get())) > 0, c.loads);
        EXPECT_EQ(FieldText(host), c.loads ? L"(Picture)" : L"(none)");
        EXPECT_EQ(host.Heard(), L"ValidateValue A " + c.path + L" False; PropertyValueChanged A");
    }
    CloseHandle(lock);
}

TEST_F(GridTest, APictureIsNotEmptiedOrAPromptIsTakenForAFile) {
    GridContainer host;
    const auto picture = MakePicture(true);
    const auto row = host.Add(L"A", Object(picture.Get()), L"", omPictureEditor);
    host.Add(L"B");
    for (const WORD key : {VK_DELETE, VK_BACK}) {
        row->putref_Value(Object(picture.Get()));
        GoTo(host, row.Get());
        // Typed on the row, Delete goes to the box.
        if (key == VK_BACK) // which begins no text
            SetFocus(FieldOf(host));
        host.RealKeys({key});
        EXPECT_EQ(FieldText(host), L"(none)");
        host.RealKeys({VK_ESCAPE});
        EXPECT_EQ(FieldText(host), L"(Picture)");
        EXPECT_EQ(ObjectOf(ValueOf(row.Get())), picture.Get());
        host.RealKeys({key, VK_RETURN});
        EXPECT_EQ(host.Heard(), L"ValidateValue A (none) False; PropertyValueChanged A");
        EXPECT_EQ(ObjectOf(ValueOf(row.Get())), nullptr);
        EXPECT_EQ(GetFocus(), BoxOf(host));
    }
    // Prompts of the row's own stand for the same; a file of that name is none.
    for (const auto& [name, text] : {std::pair(L"PicturePrompt", L"win.ini"), std::pair(L"NoPicturePrompt", L"5 none"),
                                     std::pair(L"EmptyPrompt", L"nothing yet")})
        row->SetEditorParam(_bstr_t(name), _bstr_t(text));
    GoTo(host, nullptr);
    GoTo(host, row.Get());
    EXPECT_EQ(FieldText(host), L"nothing yet");
    row->putref_Value(Object(picture.Get()));
    EXPECT_EQ(FieldText(host), L"win.ini");
    host.Select(host.Item(2L).Get());
    EXPECT_EQ(ObjectOf(ValueOf(row.Get())), picture.Get());
    row->putref_Value(Object(MakePicture(false).Get()));
    GoTo(host, row.Get());
    EXPECT_EQ(FieldText(host), L"5 none");
}

// What was confirmed in a dialog is for its row, or for nobody.
TEST_F(GridTest, WhatHappensUnderADialogGivesItsChoiceToAnotherRow) {
    for (const Kind& kind : kKinds)
        for (const auto& [name, deed] : AndDeeds({})) {
            SCOPED_TRACE(std::string(kind.name) + ", " + name);
            GridContainer host;
            const auto row = host.Add(L"A", kind.value(), L"", kind.type);
            const auto next = host.Add(L"B", kind.value(), L"", kind.type);
            const _variant_t before = ValueOf(next.Get());
            GoTo(host, row.Get());
            {
                InDialog dialog(
                    [&, act = deed] {
                        if (const HWND box = NameBox(Dialog()))
                            SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"C:\\windows\\system.ini"));
                        act(host);
                    },
                    IDOK);
                host.RealKeys({VK_F4});
                EXPECT_GE(dialog.Seen(), 1);
            }
            EXPECT_FALSE(Dialog());
            host.events.on.clear();
            const _variant_t after = ValueOf(next.Get());
            EXPECT_TRUE(!ObjectOf(after) || ObjectOf(after) == ObjectOf(before)); // a control that ends lets go of it
            EXPECT_TRUE(HoldsObject(before) || after == before);
        }
}

// Own dialogs of the host.

TEST_F(GridTest, TheAnswerOfAHostIsNotTakenOrTakenForAChange) {
    const auto bytes = [](std::initializer_list<int> list, long lower = 0) {
        SAFEARRAYBOUND bound{static_cast<ULONG>(list.size()), lower};
        _variant_t value;
        V_VT(&value) = VT_ARRAY | VT_UI1;
        V_ARRAY(&value) = SafeArrayCreate(VT_UI1, 1, &bound);
        long at = lower;
        for (const int number : list) {
            auto byte = static_cast<BYTE>(number);
            SafeArrayPutElement(V_ARRAY(&value), &at, &byte);
            ++at;
        }
        return value;
    };
    const _variant_t one = bytes({1, 2});
    struct Case {
        _variant_t before;
        _variant_t answer;
        bool changed;
    };
    const Case cases[] = {
        {L"x", L"y", true},
        {L"x", L"x", false},
        {Null(), L"x", true},
        {L"x", _variant_t(), true},
        {1L, L"1", false},
        {one, bytes({1, 2}), false},
        {one, bytes({1, 2}, 5), false},
        {bytes({}), bytes({}), false},
        {one, bytes({1, 3}), true},
        {one, bytes({1}), true},
        {one, L"x", true},
        {L"x", one, true},
        {L"x", ToVariant(std::wstring(1 << 20, L'z')), true},
    };
    for (const Case& c : cases) {
        GridContainer host;
        const auto row = host.Add(L"A", c.before, L"", omCustomDialog);
        host.Add(L"B");
        GoTo(host, row.Get());
        host.events.on[L"ShowEditorDialog"] = [&](const EventCall& call) {
            EXPECT_EQ(V_VT(&call[1]), VT_BYREF | VT_VARIANT);
            AnswerWith(call, c.answer);
        };
        host.RealKeys({VK_F4});
        EXPECT_EQ(host.Heard().substr(0, 18), L"ShowEditorDialog A");
        EXPECT_EQ(std::ranges::count(host.log, "EnableModeless 0"), 0) << "the dialog is the host's";
        EXPECT_EQ(GetFocus(), FieldOf(host));
        if (V_VT(&c.answer) == VT_BSTR)
            EXPECT_EQ(FieldText(host).substr(0, 300), FromBstr(V_BSTR(&c.answer)).substr(0, 300));
        const _variant_t waiting = ValueOf(row.Get());
        EXPECT_EQ(V_VT(&waiting), V_VT(&c.before)) << "until ENTER";
        host.RealKeys({VK_RETURN});
        const _variant_t stored = ValueOf(row.Get());
        EXPECT_EQ(V_VT(&stored), V_VT(c.changed ? &c.answer : &c.before));
        EXPECT_EQ(host.Heard().find(L"PropertyValueChanged") != std::wstring::npos, c.changed || V_ISARRAY(&c.before));
    }
}

// An object of the host whose default member can be set.
class Holder : public HostObject {
public:
    ComPtr<IUnknown> held;
    HRESULT answer = S_OK;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        if (id != DISPID_VALUE || !(flags & DISPATCH_PROPERTYPUTREF))
            return DISP_E_MEMBERNOTFOUND;
        if (SUCCEEDED(answer))
            held = ObjectOf(parameters->rgvarg[0]);
        return answer;
    }
};

TEST_F(GridTest, AnAnswerOfAnObjectIsLostOrFailsInSilence) {
    Holder holder;
    Holder other;
    {
        GridContainer host;
        auto row = host.Add(L"A", Object(&holder), L"", omCustomDialog);
        GoTo(host, row.Get());
        EXPECT_EQ(FieldText(host), L"");
        _variant_t answer = Object(&other);
        host.events.on[L"ShowEditorDialog"] = [&](const EventCall& call) { AnswerWith(call, answer); };
        host.RealKeys({VK_F4});
        EXPECT_EQ(holder.held.Get(), &other);
        EXPECT_EQ(ObjectOf(ValueOf(row.Get())), &holder) << "it holds the answer, the row holds it";
        host.Heard();
        holder.answer = E_FAIL;
        host.RealKeys({VK_F4});
        EXPECT_NE(host.Heard().find(L"DisplayError"), std::wstring::npos);
        EXPECT_EQ(GetFocus(), host.Tree());
        // One that has none to take it.
        row->put_Value(_variant_t(L"plain"));
        host.Heard();
        host.RealKeys({VK_F4});
        EXPECT_NE(host.Heard().find(L"DisplayError"), std::wstring::npos);
        EXPECT_EQ(ValueText(row.Get()), L"plain");
        // The control itself as value and as answer.
        answer = Object(host.grid.Get());
        row->putref_Value(answer);
        GoTo(host, nullptr);
        GoTo(host, row.Get());
        host.RealKeys({VK_F4});
        answer.Clear();
        // A load gives up the edit: the object of the row that goes is not kept.
        row->putref_Value(Object(&other));
        GoTo(host, nullptr);
        GoTo(host, row.Get());
        const int held = other.references;
        row = nullptr;
        VARIANT_BOOL loaded = VARIANT_FALSE;
        EXPECT_EQ(host->LoadObjectProperties(MakeFont().Get(), VARIANT_TRUE, VARIANT_TRUE, &loaded), S_OK);
        EXPECT_EQ(other.references, held - 2) << "of the row and of its editor";
        host.Clear();
        row = host.Add(L"A", L"x", L"", omCustomDialog);
        GoTo(host, row.Get());
        // The handler fails: told, and the value stays.
        host.events.on[L"ShowEditorDialog"] = [](const EventCall&) {};
        row->put_Value(_variant_t(L"plain"));
        host.Heard();
        host.events.answer = DISP_E_EXCEPTION;
        host.RealKeys({VK_F4});
        EXPECT_NE(host.Heard().find(L"DisplayError The handler raised."), std::wstring::npos);
        EXPECT_EQ(FieldText(host), L"plain");
        holder.held.Reset();
    }
    EXPECT_EQ(holder.references, 1);
    EXPECT_EQ(other.references, 1);
}

TEST_F(GridTest, AHostThatDoesSomethingElseInsteadOfAnsweringFails) {
    for (const auto& [name, deed] : AndDeeds({}))
        for (const bool byButton : {false, true}) {
            SCOPED_TRACE(name);
            GridContainer host;
            const auto row = host.Add(L"A", L"x", L"", omCustomDialog);
            const auto next = host.Add(L"B", L"y", L"", omCustomDialog);
            GoTo(host, row.Get());
            int asked = 0;
            host.events.on[L"ShowEditorDialog"] = [&, act = deed](const EventCall& call) {
                ++asked;
                host->StartPropertyEdit(host.Item(1L).Get()); // it is being asked already
                const _variant_t answer(L"z");
                AnswerWith(call, answer);
                act(host);
            };
            byButton ? host.RealClick(ButtonOf(host), 4, 6) : host.RealKeys({VK_F4});
            EXPECT_EQ(asked, 1);
            EXPECT_EQ(ValueText(next.Get()), L"y");
        }
}

TEST_F(GridTest, ADisabledControlOpensDialogs) {
    for (const Kind& kind : kKinds) {
        GridContainer host;
        const auto row = host.Add(L"A", kind.value(), L"", kind.type);
        GoTo(host, row.Get());
        SetFocus(FieldOf(host));
        host->put_Enabled(VARIANT_FALSE);
        InDialog dialog;
        host.RealKeys({VK_F4, VK_SPACE, VK_DELETE});
        host.RealClick(ButtonOf(host), 4, 6);
        EXPECT_EQ(dialog.Seen(), 0);
        host->put_Enabled(VARIANT_TRUE);
        EXPECT_EQ(host.Heard(), L"");
    }
}

} // namespace
} // namespace ormisk::test
