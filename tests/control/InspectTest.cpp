// Rows of objects: which there are, what they get, and that edits reach the object.

#include "InspectTools.h"

namespace ormisk::test {
namespace {

// The rows with category (but the default one), editor, sign and point of numbers, number of list items and protection.
std::wstring Rows(const GridContainer& host) {
    std::wstring all;
    for (long i = 1; i <= host.Count(); ++i) {
        const auto row = host.Item(i);
        const std::wstring category = Read(row, &_CProperty::get_Category);
        all += PropertyName(row.Get()) + L" " + (category == L"Misc" ? L"" : category + L" ");
        all += std::to_wstring(Read(row, &_CProperty::get_EditorType)); // makes the items of a Boolean
        const long count = Read(Read(row, &_CProperty::get_ListItems), &_CListItems::get_Count);
        all += Param(row.Get(), L"AllowNegative") == L"True" ? L"-" : L"";
        all += Param(row.Get(), L"AllowFloatingPoint") == L"True" ? L"." : L"";
        all += count ? L" of " + std::to_wstring(count) : L"";
        all += Read(row, &_CProperty::get_ReadOnly) ? L" fixed, " : L", ";
    }
    return all;
}

TEST_F(InspectTest, EachMemberGetsTheRowOfItsTypeAndAttributesAndOthersGetNone) {
    GridContainer host;
    const Inspected object;
    ASSERT_TRUE(Load(host.grid.Get(), object.Get()));
    // The library of ALost is gone; the category of Unsorted is the default one, which has no name; Stock is of none by
    // its object, which is not asked.
    EXPECT_EQ(Rows(host), L"Inherited 2, AByte 3, ASignedByte 3-, AShort 3-, AnUnsignedShort 3, ALong 3-, AnInt 3-, "
                          L"AHyper 3-, ADecimal 3-, ASingle 3-., ADouble 3-., ADate 6, AText 2, AFlag 4 of 2, "
                          L"AColor 10, APaint 10, AFlavor 9 of 3, ATaste 9 of 3, ATristate 9 of 3, AFont 5, "
                          L"APicture 11, AnAmount 0, Anything 0, Child 0, ACrowd 9 of 5000, ALost 0, "
                          L"ReadOnly 3- fixed, FailsRead 3- fixed, FailsWrite 3- fixed, Coerces 3-, Counts 3-, "
                          L"Noisy 3-, Picky 3-, Looks Appearance 3-, Own Flavours 3-, Unsorted 3-, "
                          L"Uncategorized 3-, Stock 3-, ");
    EXPECT_EQ(ValueText(host.Item(L"FailsRead").Get()), L"");
    EXPECT_EQ(ValueText(host.Item(L"Counts").Get()), L"2") << "more was read than the write test and the value";
    EXPECT_EQ(Read(host.Item(1L), &_CProperty::get_Help), L"From the base.");
    EXPECT_EQ(Read(host.Item(1L), &_CProperty::get_HelpContext), 7);
    EXPECT_NE(Param(host.Item(L"APicture").Get(), L"Filter").find(L"*.bmp"), std::wstring::npos);
}

TEST_F(InspectTest, ListItemsAreTheConstantsInTheOrderOfTheType) {
    GridContainer host;
    const Inspected object;
    Load(host.grid.Get(), object.Get());
    std::wstring all;
    for (long i = 1; i <= 3; ++i) {
        ComPtr<_CListItem> item;
        Read(host.Item(L"ATaste"), &_CProperty::get_ListItems)->get_Item(i, item.GetAddressOf());
        all += Read(item, &_CListItem::get_Text) + L"=" + TextOf(Read(item, &_CListItem::get_Value)) + L" ";
    }
    EXPECT_EQ(all, L"3 - Sweet=3 -5 - Salty=-5 0 - Sour=0 ");
}

TEST_F(InspectTest, TypesAreFoundHoweverAnObjectDescribesItself) {
    GridContainer host;
    const Inspected object(1); // a pure dispatch interface, half of it variables
    EXPECT_TRUE(Load(host.grid.Get(), object.Get()));
    EXPECT_EQ(Rows(host), L"AText 2, ALong 3-, Child 0, AFlavor 9 of 3, ");
    for (const long shape : {3L, 4L}) { // one side of a dual interface, a class
        object.Put(L"Shape", shape);
        EXPECT_TRUE(Load(host.grid.Get(), object.Get()));
        EXPECT_EQ(host.Count(), 38) << shape;
    }
    object.Put(L"Shape", 5L); // fails in every call
    EXPECT_TRUE(Load(host.grid.Get(), object.Get()));
    EXPECT_NE(Rows(host).find(L", AText 2 fixed, "), std::wstring::npos) << "a failing member can be edited";
    object.Put(L"Shape", 2L); // no type information
    EXPECT_TRUE(Load(host.grid.Get(), object.Get()));
    EXPECT_EQ(host.Count(), 0);
    EXPECT_TRUE(Load(host.grid.Get(), nullptr));
}

TEST_F(InspectTest, EditsReachTheObjectAndShowWhatItTook) {
    GridContainer host;
    const Inspected object;
    Load(host.grid.Get(), object.Get());
    const auto edit = [&](const wchar_t* name, const _variant_t& value) {
        const auto row = host.Item(name);
        EXPECT_EQ(row->put_Value(value), S_OK);
        return ValueText(row.Get());
    };
    EXPECT_EQ(edit(L"Coerces", 150L), L"100");
    EXPECT_EQ(edit(L"Picky", 7L), L"7"); // takes a typed reference only
    EXPECT_EQ(TextOf(object[L"Picky"]), L"7");
    EXPECT_EQ(edit(L"FailsWrite", 7L), L"0");
    EXPECT_EQ(edit(L"AShort", L"12"), L"12");
    EXPECT_EQ(V_VT(&static_cast<const VARIANT&>(object[L"AShort"])), VT_I2);
    const Inspected child;
    EXPECT_EQ(host.Item(L"Child")->putref_Value(_variant_t(child.Get())), S_OK);
    EXPECT_TRUE(SameObject(ObjectOf(object[L"Child"]), child.Get()));
    object.Put(L"Child", kNothing);
}

TEST_F(InspectTest, ObjectsInObjectsAreWalkedToTheDepthAndRowsFollowTheirObject) {
    GridContainer host;
    const Inspected outer(1), middle(1), inner(1), other(1);
    outer.Put(L"Child", middle.Get());
    middle.Put(L"Child", inner.Get());
    Load(host.grid.Get(), outer.Get(), 2);
    EXPECT_EQ(host.Count(), 8);
    EXPECT_EQ(host.Item(L"child_child")->put_Help(_bstr_t(L"x")), S_OK);
    Load(host.grid.Get(), outer.Get(), 3);
    EXPECT_EQ(host.Count(), 12);
    const auto deepest = host.Item(L"CHILD_CHILD_ATEXT");
    deepest->put_Value(_variant_t(L"deep"));
    EXPECT_EQ(TextOf(inner[L"AText"]), L"deep");

    const auto row = host.Item(L"Child_Child");
    row->putref_Value(_variant_t(other.Get()));
    deepest->put_Value(_variant_t(L"elsewhere"));
    EXPECT_EQ(TextOf(inner[L"AText"]), L"deep");
    EXPECT_EQ(TextOf(other[L"AText"]), L"elsewhere");
    for (const auto* object : {&outer, &middle})
        object->Put(L"Child", kNothing);
}

// Gives another interface at each question for one, as objects do that make some of them when asked.
class TornOff : public Function {
public:
    explicit TornOff(const Inspected& object) : Function([] {}), m_Object(object) {}
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        return m_Object.Get()->QueryInterface(iid, result);
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return m_Object.Get()->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return m_Object.Get()->GetIDsOfNames(iid, names, count, locale, ids);
    }

private:
    const Inspected& m_Object;
};

TEST_F(InspectTest, ObjectsGoToTheRowsBelowTheirRowAndNotToThoseOfACategoryWithItsKey) {
    const Inspected outer(1), inner(1), other(1);
    GridContainer host;
    outer.Put(L"Child", inner.Get());
    const auto stranger = host.Add(L"X", L"", L"Misc_Child");
    Load(host.grid.Get(), outer.Get(), 2, false);
    host->put_ActiveView(omCatagorized);
    host.Item(L"Child")->putref_Value(_variant_t(other.Get()));
    EXPECT_EQ(Read(stranger, &_CProperty::get_SourceObject).Get(), nullptr);
    EXPECT_EQ(Read(host.Item(L"Child_AText"), &_CProperty::get_SourceObject).Get(), other.Get());
    outer.Put(L"Child", kNothing);
}

TEST_F(InspectTest, ChildRowsMirrorTheInterfaceThatTheirParentHoldsForNoOtherLivesAsLong) {
    const Inspected outer(1), inner(1);
    TornOff torn(inner);
    GridContainer host;
    outer.Put(L"Child", &torn);
    Load(host.grid.Get(), outer.Get(), 2);
    const auto source = [&] { return Read(host.Item(L"Child_AText"), &_CProperty::get_SourceObject); };
    EXPECT_EQ(source().Get(), &torn);
    host.Item(L"Child")->putref_Value(kNothing);
    host.Item(L"Child")->putref_Value(_variant_t(&torn));
    EXPECT_EQ(source().Get(), &torn);
    outer.Put(L"Child", kNothing);
}

TEST_F(InspectTest, RowsNeverCallAnObjectThatIsGone) {
    GridContainer host;
    std::vector<ComPtr<_CProperty>> kept;
    {
        const Inspected object(1);
        object.Put(L"Child", Inspected(1).Get());
        Load(host.grid.Get(), object.Get(), 2);
        const auto child = host.Item(L"Child_AText");
        host.Item(L"Child")->putref_Value(kNothing);
        EXPECT_EQ(child->put_Value(_variant_t(L"to whom?")), S_OK);
        for (long i = 1; i <= host.Count(); ++i)
            kept.push_back(host.Item(i));
        EXPECT_EQ(kept.size(), 8u);
        host.Remove(1L);
        host.Clear();
    }
    EXPECT_TRUE(TestServer::IsIdle()) << "rows that are gone hold objects";
    for (const auto& row : kept) {
        EXPECT_EQ(row->put_Value(_variant_t(L"1")), S_OK);
        EXPECT_EQ(Read(row, &_CProperty::get_SourceObject).Get(), nullptr);
    }
}

TEST_F(InspectTest, AnObjectInItselfFillsAnyDepthAndGoesAgain) {
    GridContainer host;
    const Inspected object(1);
    object.Put(L"Child", object.Get());
    Load(host.grid.Get(), object.Get(), 1000);
    EXPECT_EQ(host.Count(), 4000);
    host.Remove(3L);
    EXPECT_EQ(host.Count(), 3);
    object.Put(L"Child", kNothing);
}

TEST_F(InspectTest, TheHostDecidesOnCategoryAndRowButNotOnTheEditorOfAMember) {
    GridContainer host;
    const Inspected object(1), child(1);
    object.Put(L"Child", child.Get());
    host.events.on[L"AddingProperty"] = [](const EventCall& call) {
        const std::wstring name = TextOf(call[0]);
        SysReAllocString(V_BSTRREF(&call[1]), L"Ours|Own");
        *V_I4REF(&call[2]) = name == L"ALong" ? omDateEditor : omTextEditor; // 3 is no date
        call.Set(3, name == L"Child");
    };
    host.events.quiet.insert(L"PropertyAdded");
    Load(host.grid.Get(), object.Get(), 2);
    EXPECT_EQ(host.Heard(), L"AddingProperty AText Misc 2 False; AddingProperty ALong Misc 3 False; "
                            L"AddingProperty Child Misc 0 False; AddingProperty AFlavor Misc 9 False");
    EXPECT_EQ(Rows(host), L"AText Ours|Own 2, AFlavor Ours|Own 9 of 3, ");
    object.Put(L"Child", kNothing);
}

TEST_F(InspectTest, ALoadCancelsTheEditAndAddsOnlyWhatDoesNotClash) {
    GridContainer host;
    const Inspected object(1);
    Load(host.grid.Get(), object.Get());
    host.Select(host.Item(L"AText").Get());
    host.TypeIntoEditor(L"typed");
    host.Heard();
    Load(host.grid.Get(), object.Get());
    EXPECT_EQ(host.Heard().find(L"PropertyValueChanged"), std::wstring::npos);
    EXPECT_EQ(host.EditText(), L"");
    EXPECT_EQ(TextOf(object[L"AText"]), L"3") << "the edit was committed";
    Load(host.grid.Get(), object.Get(), 1, false);
    EXPECT_EQ(host.Count(), 4);
    EXPECT_EQ(Read(host, &OrmiskGrid::get_LockRefresh), VARIANT_FALSE);
    host->put_LockRefresh(VARIANT_TRUE);
    Load(host.grid.Get(), object.Get());
    EXPECT_EQ(Read(host, &OrmiskGrid::get_LockRefresh), VARIANT_TRUE);
}

} // namespace
} // namespace ormisk::test
