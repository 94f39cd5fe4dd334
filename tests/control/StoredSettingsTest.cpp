// What a container keeps of the control: bags, streams and storages, sound and damaged.

#include "GridContainer.h"

#include "automation/ByName.h"
#include "grid/PropertyTable.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <shlwapi.h>

namespace ormisk::test {
namespace {

// A container's bag, and its log.
class Bag final : public IPropertyBag, public IErrorLog {
public:
    std::map<std::wstring, _variant_t> values;
    std::vector<std::wstring> written; // keys in their order
    std::vector<std::wstring> told;
    HRESULT refusal = E_INVALIDARG; // of a key that is not there
    bool typed = false;             // when a type is asked for, gives values of that type only

    STDMETHODIMP QueryInterface(REFIID, void** object) override { return *object = nullptr, E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override {
        const auto found = values.find(name);
        if (found == values.end())
            return refusal;
        if (typed && V_VT(value) != VT_EMPTY && V_VT(value) != V_VT(&found->second)) {
            EXCEPINFO trouble{};
            if (log)
                log->AddError(name, &trouble);
            return E_FAIL;
        }
        *value = _variant_t(found->second).Detach();
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        written.emplace_back(name);
        values[name] = *value;
        return S_OK;
    }
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO*) override { return told.emplace_back(name), S_OK; }
};

std::vector<std::wstring> AllKeys() {
    std::vector<std::wstring> keys;
    for (const PropertyEntry& entry : kProperties)
        if (entry.stored)
            keys.emplace_back(entry.name);
    return keys;
}

// The public properties that are stored, each as text; fonts and pictures by what shows of them.
std::map<std::wstring, std::wstring> Settings(OrmiskGrid* grid) {
    std::map<std::wstring, std::wstring> settings;
    for (const auto& key : AllKeys()) {
        const _variant_t value = InvokeByName(grid, key, DISPATCH_PROPERTYGET);
        IUnknown* const object = ObjectOf(value);
        if (const auto font = Query<IFontDisp>(object)) {
            const FontDescription description = DescribeFont(font.Get());
            settings[key] = description.Name + L" " + std::to_wstring(description.Size) +
                            (description.Bold ? L" bold" : L"") + (description.Italic ? L" italic" : L"");
        } else if (const auto picture = Query<IPicture>(object)) {
            long width = 0, height = 0;
            picture->get_Width(&width);
            picture->get_Height(&height);
            settings[key] = std::to_wstring(width) + L" x " + std::to_wstring(height);
        } else {
            settings[key] = HoldsObject(value) ? L"Nothing" : TextOf(value);
        }
    }
    return settings;
}

ComPtr<IStream> StreamOf(const std::vector<std::uint8_t>& bytes = {}) {
    return Adopt(SHCreateMemStream(bytes.data(), static_cast<UINT>(bytes.size())));
}

// Of a file: Wine saves pictures of bitmap handles so that it cannot load those of the screen's depth, and loses
// handles.
ComPtr<IPictureDisp> AnyPicture() {
    constexpr long kWidth = 7, kHeight = 5, kRow = 24, kHead = 54; // 24 bits a pixel
    std::vector<std::uint8_t> file(kHead + kRow * kHeight, 0x40);
    const BITMAPINFOHEADER info{sizeof info, kWidth, kHeight, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    const std::uint8_t head[] = {'B', 'M', kHead + kRow * kHeight, 0, 0, 0, 0, 0, 0, 0, kHead, 0, 0, 0};
    std::copy(std::begin(head), std::end(head), file.begin());
    std::memcpy(file.data() + sizeof head, &info, sizeof info);
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(OleLoadPicture(StreamOf(file).Get(), 0, FALSE, IID_IPictureDisp,
                             reinterpret_cast<void**>(picture.GetAddressOf())),
              S_OK);
    return picture;
}

void Put(OrmiskGrid* grid, const wchar_t* name, _variant_t value) {
    InvokeByName(grid, name, HoldsObject(value) ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT, &value);
}

// Every setting other than that of a new control.
void ChangeAll(OrmiskGrid* grid) {
    for (const PropertyEntry& entry : kProperties) {
        if (!entry.stored)
            continue;
        const _variant_t value = InvokeByName(grid, entry.name, DISPATCH_PROPERTYGET);
        if (V_VT(&value) == VT_BOOL)
            Put(grid, entry.name, V_BOOL(&value) == VARIANT_FALSE);
        else if (V_VT(&value) == VT_BSTR)
            Put(grid, entry.name, ToVariant(L"<\x20AC\x0416 " + std::wstring(entry.name)));
        else if (V_VT(&value) == VT_R4)
            Put(grid, entry.name, 17.5F);
        else if (!HoldsObject(value))
            Put(grid, entry.name, V_I4(&value) < 0 ? 0x00123456L : V_I4(&value) == 0 ? 1L : 0L);
    }
    Put(grid, L"InspectionDepth", 70000L);
    Put(grid, L"Picture", AnyPicture().Get());
    const ComPtr<IFontDisp> font = NewFont(L"Courier New", 112500);
    ApplyFont({L"Courier New", 11.25, true, true, false, false, FW_BOLD, 0}, font.Get());
    Put(grid, L"Font", font.Get());
}

std::vector<std::uint8_t> BytesOf(IStream* stream) {
    STATSTG state{};
    stream->Stat(&state, STATFLAG_NONAME);
    std::vector<std::uint8_t> bytes(state.cbSize.LowPart);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    ULONG read = 0;
    stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read);
    EXPECT_EQ(read, bytes.size());
    return bytes;
}

template <class Interface> ComPtr<Interface> As(const GridContainer& host) { return Query<Interface>(host.grid); }

std::vector<std::uint8_t> Saved(const GridContainer& host) {
    const auto stream = StreamOf();
    EXPECT_EQ(As<IPersistStreamInit>(host)->Save(stream.Get(), TRUE), S_OK);
    return BytesOf(stream.Get());
}

TEST_F(GridTest, ASettingIsLostOnTheWayThroughAStore) {
    GridContainer source;
    const auto fresh = Settings(source.grid.Get());
    ChangeAll(source.grid.Get());
    const auto settings = Settings(source.grid.Get());
    for (const auto& [key, value] : settings)
        EXPECT_NE(value, fresh.at(key)) << key.c_str();

    Bag bag;
    EXPECT_EQ(As<IPersistPropertyBag>(source)->Save(&bag, TRUE, FALSE), S_OK);
    EXPECT_EQ(bag.written, AllKeys());
    bag.values[L"Indentation"].ChangeType(VT_R8);
    for (const bool typed : {false, true}) {
        GridContainer target;
        bag.typed = typed;
        EXPECT_EQ(As<IPersistPropertyBag>(target)->Load(&bag, &bag), S_OK);
        EXPECT_EQ(Settings(target.grid.Get()), settings);
        EXPECT_EQ(As<IPersistStreamInit>(target)->IsDirty(), S_FALSE);
    }
    EXPECT_TRUE(bag.told.empty());

    GridContainer target;
    const auto stream = StreamOf();
    EXPECT_EQ(As<IPersistStreamInit>(source)->Save(stream.Get(), TRUE), S_OK);
    const char next[] = "next";
    stream->Write(next, 4, nullptr); // the container's own
    ULARGE_INTEGER most{};
    EXPECT_EQ(As<IPersistStreamInit>(source)->GetSizeMax(&most), S_OK);
    EXPECT_EQ(most.QuadPart + 4, BytesOf(stream.Get()).size());
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(As<IPersistStreamInit>(target)->Load(stream.Get()), S_OK);
    EXPECT_EQ(Settings(target.grid.Get()), settings);
    char rest[8] = "";
    stream->Read(rest, 8, nullptr);
    EXPECT_STREQ(rest, next);
    EXPECT_EQ(Saved(target), Saved(source));

    GridContainer third;
    ComPtr<IStorage> storage;
    ASSERT_EQ(StgCreateDocfile(nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0,
                               storage.GetAddressOf()),
              S_OK);
    EXPECT_EQ(As<IPersistStorage>(third)->Load(storage.Get()), S_OK) << "an empty one";
    EXPECT_EQ(Settings(third.grid.Get()), fresh);
    EXPECT_EQ(As<IPersistStorage>(source)->Save(storage.Get(), FALSE), S_OK);
    source->put_LineColor(0x112233);
    EXPECT_EQ(As<IPersistStorage>(source)->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(As<IPersistStorage>(source)->IsDirty(), S_OK) << "a copy";
    EXPECT_EQ(As<IPersistStorage>(source)->SaveCompleted(storage.Get()), S_OK);
    EXPECT_EQ(As<IPersistStorage>(source)->IsDirty(), S_FALSE);
    EXPECT_EQ(As<IPersistStorage>(third)->Load(storage.Get()), S_OK);
    EXPECT_EQ(Settings(third.grid.Get()), settings);
}

TEST_F(GridTest, ADefaultIsWrittenOrASettingWithoutAKeyIsNotTheDefault) {
    GridContainer host;
    const auto fresh = Settings(host.grid.Get());
    Bag bag;
    EXPECT_EQ(As<IPersistPropertyBag>(host)->Save(&bag, TRUE, FALSE), S_OK);
    EXPECT_EQ(bag.written, (std::vector<std::wstring>{L"Font", L"Picture"}));
    bag.written.clear();
    EXPECT_EQ(As<IPersistPropertyBag>(host)->Save(&bag, TRUE, TRUE), S_OK);
    EXPECT_EQ(bag.written, AllKeys());
    EXPECT_EQ(V_VT(&bag.values[L"InspectionDepth"]), VT_I4);

    ChangeAll(host.grid.Get());
    Bag empty;
    for (const HRESULT refusal : {E_INVALIDARG, E_FAIL}) {
        empty.refusal = refusal;
        EXPECT_EQ(As<IPersistPropertyBag>(host)->Load(&empty, nullptr), S_OK);
        if (refusal == E_INVALIDARG) {
            auto settings = Settings(host.grid.Get());
            settings[L"Font"] = fresh.at(L"Font"); // that of the container, which has none here
            EXPECT_EQ(settings, fresh);
            ChangeAll(host.grid.Get());
        } else {
            EXPECT_NE(Settings(host.grid.Get()), fresh) << "a bag that fails is not an empty one";
        }
    }
}

TEST_F(GridTest, ABadValueCostsMoreThanItsOwnSetting) {
    Bag bag;
    bag.values = {{L"CategorySeparator", L"  "},
                  {L"AlphabeticTabCaption", L""},
                  {L"Indentation", -3.0F},
                  {L"InspectionDepth", -5L},
                  {L"BackColor", L"2147483663"},
                  {L"ForeColor", L"no colour"},
                  {L"Font", L"Arial"},
                  {L"Picture", 5L},
                  {L"Sorted", L"perhaps"},
                  {L"NameCaption", 12L},
                  {L"Nobody's", L"key"},
                  {L"ShowTabs", L"False"},
                  {L"ValueCaption", L"What it is"}};
    GridContainer host;
    const auto fresh = Settings(host.grid.Get());
    EXPECT_EQ(As<IPersistPropertyBag>(host)->Load(&bag, &bag), S_OK);
    const auto settings = Settings(host.grid.Get());
    for (const wchar_t* kept : {L"CategorySeparator", L"AlphabeticTabCaption", L"Indentation", L"ForeColor", L"Font",
                                L"Picture", L"Sorted"}) {
        EXPECT_EQ(settings.at(kept), fresh.at(kept)) << kept;
        EXPECT_NE(std::ranges::find(bag.told, kept), bag.told.end()) << kept;
    }
    EXPECT_EQ(settings.at(L"InspectionDepth"), L"1");
    EXPECT_EQ(settings.at(L"BackColor"), std::to_wstring(static_cast<long>(0x8000000F)));
    EXPECT_EQ(settings.at(L"NameCaption"), L"12");
    EXPECT_EQ(settings.at(L"ShowTabs"), L"False");
    EXPECT_EQ(settings.at(L"ValueCaption"), L"What it is");
}

// A stored font is the control's own; without one it goes with the container's.
TEST_F(GridTest, AStoredFontGivesWayToTheContainers) {
    const auto ambient = [](GridContainer& host, int points) { // the size tells which font it is
        host.SetAmbient(L"Font", _variant_t(static_cast<IDispatch*>(NewFont(L"Tahoma", points * 10000).Get())));
        return DescribeFont(Read(host, &OrmiskGrid::get_Font).Get()).Size;
    };
    for (const bool stored : {true, false}) {
        GridContainer source, target;
        const double other = ambient(target, 24);
        const double own = ambient(source, 12);
        Bag bag;
        EXPECT_EQ(As<IPersistPropertyBag>(source)->Save(&bag, TRUE, FALSE), S_OK);
        if (!stored)
            bag.values.erase(L"Font");
        EXPECT_EQ(As<IPersistPropertyBag>(target)->Load(&bag, nullptr), S_OK);
        EXPECT_EQ(DescribeFont(Read(target, &OrmiskGrid::get_Font).Get()).Size, stored ? own : other);
        EXPECT_EQ(ambient(target, 36) == own, stored);
    }
}

TEST_F(GridTest, ADamagedStreamFailsTheForm) {
    GridContainer host;
    ChangeAll(host.grid.Get());
    const auto settings = Settings(host.grid.Get());
    const std::vector<std::uint8_t> whole = Saved(host);
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        std::vector<std::uint8_t> bytes = whole;
        if (round % 3 == 0)
            bytes.resize(random() % whole.size());
        for (int damage = 0; damage < 1 + round % 4 && !bytes.empty(); ++damage)
            bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
        ASSERT_EQ(As<IPersistStreamInit>(host)->Load(StreamOf(bytes).Get()), S_OK) << round;
    }
    EXPECT_EQ(As<IPersistStreamInit>(host)->Load(StreamOf().Get()), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>(host)->Load(nullptr), E_POINTER);
    EXPECT_EQ(As<IPersistStreamInit>(host)->Load(StreamOf(whole).Get()), S_OK);
    EXPECT_EQ(Settings(host.grid.Get()), settings);
}

} // namespace
} // namespace ormisk::test
