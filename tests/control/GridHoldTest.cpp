// What rows hold: objects that are gone for everybody else, and objects that lead back to the control.

#include "InspectTools.h"

namespace ormisk::test {
namespace {

ComPtr<_CListItems> ListOf(_CProperty* row) { return Read(row, &_CProperty::get_ListItems); }

ComPtr<_CListItem> AddEntry(_CProperty* row, IDispatch* value) {
    ComPtr<_CListItem> item;
    EXPECT_EQ(ListOf(row)->Add(_bstr_t(L"Entry"), _variant_t(1L), item.GetAddressOf()), S_OK);
    EXPECT_EQ(item->put_Value(_variant_t(value)), S_OK);
    return item;
}

// Objects that nobody but the rows of the next load keeps, once that has cleared the row before it.
ComPtr<IDispatch> (*const kShown[])(_CProperty* row) = {
    [](_CProperty* row) { return ComPtr<IDispatch>(row); },
    [](_CProperty* row) { return Query<IDispatch>(ListOf(row)); },
    [](_CProperty* row) { return Query<IDispatch>(AddEntry(row, row)); },
    [](_CProperty*) { return Query<IDispatch>(MakeFont()); },
    [](_CProperty*) { return Inspected().object; },
};

TEST_F(InspectTest, RowsCallAnObjectThatIsGone) {
    for (const auto& shown : kShown) {
        SCOPED_TRACE(&shown - kShown);
        GridContainer host;
        Load(host.grid.Get(), shown(host.Add(L"A", L"1").Get()).Get(), 2);
        EXPECT_GT(host.Count(), 0);
        for (long i = 1; i <= host.Count(); ++i) {
            host.Select(host.Item(i).Get());
            host.Item(i)->put_Value(_variant_t(2L));
        }
        host.Paint();
        host.Clear();
        EXPECT_TRUE(TestServer::IsIdle()) << "the object outlives its rows";
    }
}

// A circle of references in a grid with one row.
struct Circle {
    const char* name;
    bool foreign; // through an object that is not the control's: it must be told of its end to break it
    void (*close)(GridContainer& host, _CProperty* row, const _variant_t& grid);
};

// An object that holds the grid, and that nobody holds.
ComPtr<IDispatch> Holder(const _variant_t& grid) {
    const Inspected object(1);
    object.Put(L"Child", grid);
    return object.object;
}

const Circle kCircles[] = {
    {"the grid as source", false, [](auto& host, auto*, auto&) { Load(host.grid.Get(), host.grid.Get()); }},
    {"the grid in itself", false,
     [](auto& host, auto* row, auto&) {
         host.Select(row);
         Load(host.grid.Get(), host.grid.Get(), 3, false);
     }},
    {"a row of the loaded grid", false,
     [](auto& host, auto*, auto&) {
         Load(host.grid.Get(), host.grid.Get(), 2);
         Load(host.grid.Get(), host.Item(1L).Get(), 2);
     }},
    {"the grid as value, tag and entry on screen", false,
     [](auto& host, auto* row, auto& grid) {
         row->put_EditorType(omListEditor);
         AddEntry(row, host.grid.Get());
         row->putref_Value(grid);
         row->putref_Tag(grid);
         host.Select(row);
     }},
    {"what was removed", false,
     [](auto& host, auto* row, auto& grid) {
         const auto item = AddEntry(row, host.grid.Get());
         item->put_Value(_variant_t(item.Get()));
         EXPECT_EQ(ListOf(row)->Remove(1), S_OK);
         AddEntry(row, row);
         row->putref_Value(_variant_t(row));
         row->putref_Tag(grid);
         host.Clear();
     }},
    {"rows, lists and the collection", false,
     [](auto& host, auto* row, auto&) {
         const auto other = host.Add(L"B", L"", L"", omListEditor);
         row->putref_Value(_variant_t(other.Get()));
         row->putref_Tag(_variant_t(host.Properties().Get()));
         other->putref_Value(_variant_t(row));
         AddEntry(other.Get(), ListOf(other.Get()).Get());
         host.Select(other.Get());
     }},
    {"an array", true,
     [](auto&, auto* row, auto& grid) {
         _variant_t array;
         V_VT(&array) = VT_ARRAY | VT_VARIANT;
         V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, 1);
         LONG first = 0;
         SafeArrayPutElement(V_ARRAY(&array), &first, const_cast<_variant_t*>(&grid));
         row->put_Value(array);
         row->put_Tag(array);
     }},
    {"a source", true, [](auto& host, auto*, auto& grid) { Load(host.grid.Get(), Holder(grid).Get(), 2); }},
    {"a value, a tag and an entry on screen", true,
     [](auto& host, auto* row, auto& grid) {
         row->put_EditorType(omListEditor);
         AddEntry(row, Holder(grid).Get());
         row->putref_Value(_variant_t(Holder(grid).Get()));
         row->putref_Tag(_variant_t(Holder(grid).Get()));
         host.Select(row);
     }},
    {"the source of a load that is going on", true,
     [](auto& host, auto*, auto& grid) {
         host.events.on[L"AddingProperty"] = [&host](const EventCall&) { host.LetGo(); };
         const ComPtr<OrmiskGrid> held = host.grid;
         Load(held.Get(), Holder(grid).Get());
     }},
};

using End = void (*)(GridContainer& host, OrmiskGrid* last);
const End kEnds[] = {
    [](GridContainer&, OrmiskGrid*) {}, // it is just released
    [](GridContainer&, OrmiskGrid* last) { last->Close(OLECLOSE_NOSAVE); },
    [](GridContainer&, OrmiskGrid* last) { last->SetClientSite(nullptr); },
    [](GridContainer& host, OrmiskGrid*) { DestroyWindow(host.window); },
};

TEST_F(InspectTest, TheControlKeepsItselfAlive) {
    for (const End& end : kEnds)
        for (const Circle& circle : kCircles) {
            if (circle.foreign && &end == kEnds)
                continue;
            SCOPED_TRACE(std::string(circle.name) + ", end " + std::to_string(&end - kEnds));
            {
                GridContainer host;
                circle.close(host, host.Add(L"A").Get(), _variant_t(host.grid.Get()));
                if (const ComPtr<OrmiskGrid> last = host.Disconnect())
                    end(host, last.Get());
            }
            ExpectNothingLeft();
            EXPECT_TRUE(TestServer::IsIdle());
        }
}

TEST_F(InspectTest, AControlThatIsSitedAgainHasLostMoreThanItsObjects) {
    for (const bool closed : {false, true}) {
        GridContainer host;
        const Inspected object(1);
        const auto plain = host.Add(L"A", L"1", L"X"), removed = host.Add(L"B");
        removed->putref_Value(_variant_t(object.Get()));
        host.Remove(2L);
        EXPECT_EQ(ObjectOf(Read(removed, &_CProperty::get_Value)), object.Get())
            << "it has left the collection, not the host";
        Load(host.grid.Get(), object.Get(), 1, false);
        host.Select(plain.Get());
        host.TypeIntoEditor(L"one");
        host.Heard();
        EXPECT_EQ(closed ? host->Close(OLECLOSE_NOSAVE) : host->SetClientSite(nullptr), S_OK);
        EXPECT_EQ(host->SetClientSite(&host), S_OK);
        EXPECT_EQ(host.Heard(), L"") << "it is no time for events";
        EXPECT_EQ(host.Selected() + host.EditText(), L"Aone");
        host.Enter();
        EXPECT_EQ(ValueText(plain.Get()), L"one");
        const _variant_t value = Read(removed, &_CProperty::get_Value);
        EXPECT_TRUE(HoldsObject(value) && !ObjectOf(value));
        EXPECT_EQ(host.Count(), 5);
        host.Item(L"ATEXT")->put_Value(_variant_t(L"to whom?"));
        EXPECT_NE(TextOf(object[L"AText"]), L"to whom?");
        Load(host.grid.Get(), object.Get());
        host.Item(L"ATEXT")->put_Value(_variant_t(L"new"));
        EXPECT_EQ(TextOf(object[L"AText"]), L"new");
    }
}

} // namespace
} // namespace ormisk::test
