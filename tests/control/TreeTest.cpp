#include "ModelTestTools.h"

#include "tree/CategoryWalk.h"
#include "tree/HostSort.h"

#include <gtest/gtest.h>

#include <random>

namespace ormisk {
namespace {

constexpr auto kInvalidKey = static_cast<HRESULT>(0x80040003);
constexpr auto kKeyPresent = static_cast<HRESULT>(0x80040005);

// A tree whose listener writes down what it hears, over a collection of properties.
class Tree : public testing::Test, protected _CNodeListener {
protected:
    Tree() { nodes.Init(this); }

    CNode* AddProperty(CNode* parent, std::wstring_view name, bool visible = true) {
        const auto property = model.Add(name);
        property->SetVisible(visible);
        return nodes.Add(parent, NodeRelation::Child, *property.Get());
    }
    CNode* AddCategory(CNode* parent, std::wstring key) {
        return nodes.Add(parent, NodeRelation::Child, key, key, _variant_t(L""));
    }
    CNode* Walk(std::wstring_view category) { return WalkCategoryPath(nodes, category, L"|", look); }
    void Show(CNode* node, bool visible) {
        node->Property()->SetVisible(visible);
        nodes.VisibilityChanged(node);
    }
    std::vector<CNode*> Walked() const {
        std::vector<CNode*> walked;
        CNode* node = nodes.FirstRootNode();
        while (node && node->IsHidden())
            node = node->NextVisible();
        for (; node; node = node->NextVisible())
            walked.push_back(node);
        return walked;
    }
    std::wstring Heard() { return std::exchange(m_Heard, {}); }

    void NodePropertyChanged(CNode& node) override { m_Heard += node.Key() + L".Expanded "; }
    void NodeStateChanging(CNode& node, VARIANT_BOOL& cancel) override {
        m_Heard += node.Key() + L"? ";
        onChanging(cancel);
    }

    ModelFixture model;
    CNodes nodes;
    CategoryLook look;
    std::function<void(VARIANT_BOOL&)> onChanging = [](VARIANT_BOOL&) {};

private:
    std::wstring m_Heard;
};

TEST_F(Tree, NodesAreNumberedInTheOrderOfAdditionAndKeyedByTheirPlace) {
    CNode* root = AddCategory(nullptr, L"Font");
    CNode* child = AddProperty(root, L"Size");
    CNode* sibling = nodes.Add(child, NodeRelation::Last, *model.Add(L"Bold").Get());
    EXPECT_EQ(root->TreeKey(), L"P0_I1");
    EXPECT_EQ(root->NodeId(), 1000);
    EXPECT_EQ(root->Level(), 1);
    EXPECT_EQ(child->TreeKey(), L"P1000_I1");
    EXPECT_EQ(child->NodeId(), 1001);
    EXPECT_EQ(child->Level(), 2);
    EXPECT_EQ(sibling->TreeKey(), L"P1000_I2");
    EXPECT_EQ(nodes.GetByTreeKey(L"P1000_I2"), sibling);
    EXPECT_EQ(nodes.GetByTreeKey(L"p0_i1"), root);
    for (const wchar_t* key : {L"P1000_I3", L"P1000_I0", L"P01000_I1", L"P1001_I1", L"P0_I1 ", L"P_I1", L"P0_I",
                               L"P99999999999_I1", L"", L"Font"}) {
        EXPECT_EQ(nodes.GetByTreeKey(key), nullptr) << std::wstring(key).size();
    }
    EXPECT_EQ(nodes.Count(), 3);
    nodes.Clear();
    EXPECT_EQ(nodes.Count(), 0);
    EXPECT_EQ(AddCategory(nullptr, L"Font")->NodeId(), 1000);
}

TEST_F(Tree, RemovalClosesTheGapAndKeepsNumbers) {
    AddCategory(nullptr, L"a");
    CNode* b = AddCategory(nullptr, L"b");
    AddCategory(b, L"b1");
    CNode* c = AddCategory(nullptr, L"c");
    CNode* c1 = AddCategory(c, L"c1");
    nodes.Remove(b);
    EXPECT_EQ(nodes.RootCount(), 2);
    EXPECT_EQ(nodes.Count(), 3);
    EXPECT_EQ(nodes.Category(nullptr, L"b"), nullptr);
    EXPECT_EQ(nodes.Category(b, L"b1"), nullptr);
    EXPECT_EQ(c->TreeKey(), L"P0_I2");
    EXPECT_EQ(c->NodeId(), 1003);
    EXPECT_EQ(nodes.GetByTreeKey(L"P1003_I1"), c1);
    EXPECT_EQ(nodes.GetByTreeKey(L"P1001_I1"), nullptr);
    EXPECT_EQ(AddCategory(nullptr, L"b")->NodeId(), 1005) << "a number is never given twice";
    nodes.Remove(nullptr);
    EXPECT_EQ(nodes.Count(), 4);
}

TEST_F(Tree, CategoriesAreFoundByKeyInAnyCaseAndNodesByPositionInTheOrderOfFiling) {
    CNode* a = AddCategory(nullptr, L"Ärger");
    CNode* b = AddCategory(nullptr, L"b");
    CNode* c = AddCategory(nullptr, L"c");
    EXPECT_EQ(nodes.Category(nullptr, L"ÄRGER"), a);
    EXPECT_EQ(nodes.Category(b, L"Ärger"), nullptr) << "it is the child of nobody";
    EXPECT_EQ(nodes.Category(nullptr, L"P0_I1"), nullptr) << "a tree key is no key";
    EXPECT_EQ(nodes.Category(nullptr, L""), nullptr);
    EXPECT_EQ(nodes.ItemAt(1), a);
    nodes.SwapNodes(a, b);
    EXPECT_EQ(nodes.ItemAt(1), c) << "what moved is filed anew";
    EXPECT_EQ(nodes.ItemAt(2), a);
    EXPECT_EQ(nodes.ItemAt(3), b);
    EXPECT_EQ(b->TreeKey(), L"P0_I1");
    EXPECT_EQ(a->NextSibling(), c);
    nodes.Remove(b);
    EXPECT_EQ(nodes.ItemAt(1), a) << "both later siblings were filed anew in their order";
    EXPECT_EQ(nodes.ItemAt(0), nullptr);
    EXPECT_EQ(nodes.ItemAt(3), nullptr);
    EXPECT_EQ(nodes.All().size(), 2u);
}

TEST_F(Tree, KeysThatAreTakenOrNumericAreRefused) {
    AddCategory(nullptr, L"a");
    const auto property = model.Add(L"A");
    nodes.Add(nullptr, NodeRelation::Child, *property.Get());
    AutomationError error = FailureOf([&] { AddCategory(nullptr, L" A "); });
    EXPECT_EQ(error.number, kKeyPresent);
    EXPECT_EQ(error.source, L"CProperties.Add");
    error = FailureOf([&] { nodes.Add(nullptr, NodeRelation::Child, *property.Get()); });
    EXPECT_EQ(error.number, kKeyPresent);
    error = FailureOf([&] { AddCategory(nullptr, L" 12"); });
    EXPECT_EQ(error.number, kInvalidKey);
    EXPECT_EQ(error.source, L"OrmiskGrid");
    EXPECT_EQ(nodes.Count(), 2);
    std::wstring key = L"  b ";
    nodes.Add(nullptr, NodeRelation::Child, key, L"b", _variant_t());
    EXPECT_EQ(key, L"b") << "the key comes back trimmed";
    EXPECT_TRUE(AddCategory(nullptr, L""));
    EXPECT_TRUE(AddCategory(nullptr, L"")) << "nodes without a key do not meet";
    nodes.Init(nullptr);
    EXPECT_EQ(AddCategory(nullptr, L"z"), nullptr) << "without an owner nothing is added";
}

TEST_F(Tree, TheWalkPassesOverHiddenRowsAndClosedOnes) {
    CNode* first = AddProperty(nullptr, L"first");
    CNode* hidden = AddProperty(nullptr, L"hidden", false);
    AddProperty(hidden, L"below hidden");
    CNode* category = AddCategory(nullptr, L"category");
    CNode* inner = AddCategory(category, L"inner");
    CNode* deep = AddProperty(inner, L"deep");
    AddProperty(inner, L"deep hidden", false);
    CNode* last = AddProperty(nullptr, L"last");
    EXPECT_EQ(Walked(), (std::vector{first, category, inner, deep, last}));
    category->SetExpanded(false);
    EXPECT_EQ(Walked(), (std::vector{first, category, last}));
    EXPECT_TRUE(deep->IsDescendantOf(category));
    EXPECT_FALSE(category->IsDescendantOf(deep) || deep->IsDescendantOf(deep));
}

TEST_F(Tree, OnlyACategoryAsksBeforeItOpensOrCloses) {
    CNode* category = AddCategory(nullptr, L"c");
    CNode* property = AddProperty(category, L"p");
    AddProperty(property, L"child");
    category->SetExpanded(true);
    EXPECT_EQ(Heard(), L"");
    category->SetExpanded(false);
    EXPECT_EQ(Heard(), L"c? c.Expanded ");
    property->SetExpanded(false);
    EXPECT_EQ(Heard(), L"_p.Expanded ");
    onChanging = [](VARIANT_BOOL& cancel) { cancel = VARIANT_TRUE; };
    category->SetExpanded(true);
    EXPECT_EQ(Heard(), L"c? ");
    EXPECT_FALSE(category->Expanded());
    onChanging = [](VARIANT_BOOL& cancel) { cancel = 1; };
    category->SetExpanded(true);
    EXPECT_TRUE(category->Expanded()) << "only the exact True cancels";
}

TEST_F(Tree, AHandlerMayClearTheTreeWhileANodeOpens) {
    CNode* category = AddCategory(nullptr, L"c");
    CNode* child = AddProperty(category, L"p");
    const Ref<CNode> kept(child);
    onChanging = [&](VARIANT_BOOL&) { nodes.Clear(); };
    category->SetExpanded(false);
    EXPECT_EQ(Heard(), L"c? ") << "a node without a tree tells nobody";
    EXPECT_EQ(kept->Tree(), nullptr);
    for (const auto relative : {&CNode::ParentNode, &CNode::FirstSibling, &CNode::LastSibling, &CNode::NextVisible,
                                &CNode::PrevVisible, &CNode::FirstRoot})
        EXPECT_EQ((kept.Get()->*relative)(), nullptr);
    EXPECT_FALSE(kept->IsLastSibling());
    EXPECT_FALSE(kept->IsFirstRoot());
    EXPECT_EQ(nodes.RowOf(kept.Get()), -1);
    EXPECT_EQ(nodes.Add(kept.Get(), NodeRelation::Child, *model.Add(L"q").Get()), nullptr);
    nodes.Remove(kept.Get());
    nodes.VisibilityChanged(kept.Get());
    EXPECT_EQ(kept->Name(), L"p");
    EXPECT_TRUE(kept->Property());
}

TEST_F(Tree, APropertyNodeShowsItsPropertyAndNothingOnceThatIsRemoved) {
    const Ref<CNode> node(AddProperty(nullptr, L"a"));
    const auto property = ComPtr<CProperty>(node->Property());
    property->SetName(L"b");
    node->SetBold(true);
    node->SetBackColor(5);
    node->SetDataType(L"type");
    EXPECT_EQ(node->Name(), L"b");
    EXPECT_EQ(node->Key(), L"_a");
    EXPECT_TRUE(property->IsBold());
    EXPECT_EQ(node->BackColor(), 5u);
    EXPECT_EQ(node->ForeColor(), model.owner.foreColor);
    EXPECT_EQ(node->DataType(), L"type");
    model.owner.Heard();
    node->LetValue(_variant_t(1L));
    node->LetValue(_variant_t(1L));
    node->SetValue(_variant_t(property.Get()));
    node->SetValue(_variant_t(property.Get()));
    EXPECT_EQ(model.owner.Heard(), L"Value, Value") << "the same object is not set again";
    property->SetValue(_variant_t());
    model.properties->RemoveAll();
    EXPECT_EQ(node->Property(), nullptr);
    EXPECT_EQ(V_VT(&node->Value()), VT_EMPTY);
    EXPECT_FALSE(node->Bold());
    EXPECT_EQ(node->Key(), L"_a");
    nodes.Remove(nodes.ItemOf(*property.Get()));
    EXPECT_EQ(nodes.Count(), 0);
}

TEST_F(Tree, ACategoryHasALookAndValueOfItsOwn) {
    CNode* node = AddCategory(nullptr, L"c");
    EXPECT_EQ(node->BackColor(), 0xFFFFFFFF);
    EXPECT_EQ(V_VT(&node->Value()), VT_BSTR);
    node->LetValue(_variant_t(5L));
    node->SetItalic(true);
    node->SetDataType(L"type");
    EXPECT_EQ(V_I4(&node->Value()), 5);
    EXPECT_TRUE(node->Italic());
    EXPECT_EQ(node->DataType(), L"AA");
    EXPECT_EQ(node->Property(), nullptr);
}

TEST_F(Tree, CategoriesAreSharedByPrefixWhateverBlanksAndCase) {
    look = {true, 1, 2, om3d};
    CNode* size = Walk(L"Font|Size");
    look.bold = false;
    CNode* color = Walk(L" FONT | |Color|");
    EXPECT_EQ(nodes.Count(), 3);
    EXPECT_EQ(nodes.RootCount(), 1);
    EXPECT_EQ(color->ParentNode(), size->ParentNode());
    EXPECT_EQ(Walk(L"font"), size->ParentNode());
    EXPECT_EQ(size->ParentNode()->Name(), L"Font");
    EXPECT_EQ(size->Key(), L"Size");
    EXPECT_TRUE(size->Bold());
    EXPECT_EQ(size->ForeColor(), 1u);
    EXPECT_EQ(size->BackColor(), 2u);
    EXPECT_EQ(size->Appearance(), om3d);
    EXPECT_FALSE(color->Bold()) << "each node has the look of the time it was made";
    EXPECT_EQ(Walk(L" | "), nullptr);
    EXPECT_EQ(nodes.Count(), 3);
    EXPECT_NE(Walk(L"FontSize"), size) << "the key of a path is not that of its letters";
}

TEST_F(Tree, ANumberAsFirstSegmentDropsWhatFollowsToTheRoot) {
    EXPECT_EQ(Walk(L"12"), nullptr);
    CNode* size = Walk(L"12|Size");
    ASSERT_TRUE(size);
    EXPECT_EQ(size->Level(), 1);
    EXPECT_EQ(size->Name(), L"Size");
    EXPECT_EQ(Walk(L"12|Size"), size);
    EXPECT_EQ(Walk(L"Font|12")->Level(), 2) << "below another segment the key is no number";
}

// The rows by walking, and by arithmetic.
class TreeRows : public Tree {
protected:
    void ExpectRowsAgree() {
        const std::vector<CNode*> walked = Walked();
        ASSERT_EQ(nodes.VisibleRowCount(), static_cast<long>(walked.size()));
        CNode* above = nullptr;
        for (std::size_t row = 0; row < walked.size(); ++row) {
            ASSERT_EQ(nodes.NodeAtRow(static_cast<long>(row)), walked[row]) << row;
            ASSERT_EQ(nodes.RowOf(walked[row]), static_cast<long>(row));
            ASSERT_EQ(walked[row]->PrevVisible(), above) << row;
            above = walked[row];
        }
        long displayed = 0;
        for (const Ref<CNode>& each : nodes.All())
            displayed += nodes.RowOf(each.Get()) >= 0;
        ASSERT_EQ(displayed, static_cast<long>(walked.size()));
        ASSERT_EQ(nodes.NodeAtRow(-1), nullptr);
        ASSERT_EQ(nodes.NodeAtRow(nodes.VisibleRowCount()), nullptr);
    }
    void ChangeAtRandom(std::mt19937& random) {
        const auto all = nodes.All();
        CNode* node = all.empty() ? nullptr : all[random() % all.size()].Get();
        switch (random() % 8) {
        case 0:
        case 1:
        case 2:
            AddProperty(random() % 4 ? node : nullptr, std::to_wstring(m_Names++), random() % 4 != 0);
            break;
        case 3:
            AddCategory(random() % 3 ? node : nullptr, L"c" + std::to_wstring(m_Names++));
            break;
        case 4:
            if (node && random() % 3 == 0)
                nodes.Remove(node);
            break;
        case 5:
            if (node && !node->IsCategory())
                Show(node, !node->Property()->IsVisible());
            break;
        case 6:
            if (node)
                nodes.SwapNodes(node, random() % 2 ? node->NextSibling() : node->FirstSibling());
            break;
        default:
            if (node)
                node->SetExpanded(!node->Expanded());
        }
    }

private:
    int m_Names = 0;
};

TEST_F(TreeRows, WalkingAndCountingAgreeOnRandomTrees) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        for (int step = 0; step < 300; ++step) {
            ChangeAtRandom(random);
            ExpectRowsAgree();
            ASSERT_FALSE(HasFatalFailure()) << "seed " << seed << " step " << step;
        }
        nodes.Clear();
        model.properties->RemoveAll();
        ExpectRowsAgree();
    }
}

CNode* Keyed(const CNodes& nodes, std::wstring_view key) {
    for (const Ref<CNode>& node : nodes.All())
        if (node->Key() == key)
            return node.Get();
    return nullptr;
}

// All names from top to bottom, each subtree in brackets behind its root.
std::wstring Outline(const CNodes& nodes) {
    std::wstring text;
    const std::function<void(const CNode*)> append = [&](const CNode* node) {
        for (; node; node = node->NextSibling()) {
            text += (node->IsCategory() ? L"+" : L" ") + node->Name();
            if (node->ChildCount() > 0) {
                text += L"(";
                append(node->FirstChild());
                text += L")";
            }
        }
    };
    append(nodes.FirstRootNode());
    return text;
}

TEST_F(Tree, SortingPutsKindsAndNamesInTheWrongOrder) {
    CNode* category = AddCategory(nullptr, L"k");
    for (const wchar_t* name : {L"b", L"a", L"C"}) {
        AddProperty(nullptr, name);
        AddProperty(category, std::wstring(name) + L"1");
    }
    AddCategory(nullptr, L"J");
    CNode* deep = AddCategory(category, L"deep");
    AddProperty(deep, L"y");
    AddProperty(deep, L"x", false);
    nodes.Sort(false);
    EXPECT_EQ(Outline(nodes), L"+J+k(+deep( x y) C1 a1 b1) C a b");
    EXPECT_EQ(nodes.VisibleRowCount(), 10);
    EXPECT_EQ(nodes.RowOf(Keyed(nodes, L"_y")), 3);
    EXPECT_EQ(category->TreeKey(), L"P0_I2");
    EXPECT_EQ(nodes.GetByTreeKey(L"P0_I1"), Keyed(nodes, L"J"));
    nodes.Sort(true);
    EXPECT_EQ(Outline(nodes), L" b a C+k( b1 a1 C1+deep( y x))+J");
}

// Whatever happens between sorts, the quick way ends where exchanging neighbours ends.
TEST_F(Tree, SortingRemembersAnOrderThatIsNoMore) {
    std::mt19937 random(7);
    const auto any = [&](long below) { return static_cast<long>(random() % static_cast<unsigned long>(below)); };
    CNodes reference;
    reference.Init(this);
    long made = 0;
    const auto add = [&] {
        const long at = nodes.Count() ? any(nodes.Count()) + 1 : 0;
        CNode* relative = at && any(3) ? nodes.ItemAt(at) : nullptr;
        const std::wstring relativeKey = relative ? relative->Key() : L"";
        CNode* twin = relative ? Keyed(reference, relativeKey) : nullptr;
        const std::wstring name(1, static_cast<wchar_t>(L"aAbBzZ"[any(6)]));
        if (any(3) == 0) {
            std::wstring key = L"c" + std::to_wstring(++made);
            nodes.Add(relative, NodeRelation::Child, key, name, _variant_t());
            reference.Add(twin, NodeRelation::Child, key, name, _variant_t());
        } else {
            const auto property = model.Add(L"p" + std::to_wstring(++made));
            property->SetName(name);
            property->SetVisible(any(4) != 0);
            nodes.Add(relative, NodeRelation::Child, *property.Get());
            reference.Add(twin, NodeRelation::Child, *property.Get());
        }
    };
    const AskHost agree = [](const CNode&, const CNode&, bool&) { return true; };
    for (int round = 0; round < 400; ++round) {
        for (long i = any(4); i >= 0; --i)
            add();
        const std::wstring key = nodes.ItemAt(any(nodes.Count()) + 1)->Key();
        if (any(4) == 0) {
            nodes.Remove(Keyed(nodes, key));
            reference.Remove(Keyed(reference, key));
        } else if (CNode* node = Keyed(nodes, key); any(4) == 0 && node->Property()) {
            node->Property()->SetName(std::wstring(1, static_cast<wchar_t>(L'a' + any(26))));
            nodes.NameChanged(node);
        }
        const bool descending = any(8) == 0;
        nodes.Sort(descending);
        SortByHost(reference, descending, agree);
        ASSERT_EQ(Outline(nodes), Outline(reference)) << "round " << round;
        ASSERT_EQ(nodes.VisibleRowCount(), reference.VisibleRowCount());
        for (long row = 0; row < nodes.VisibleRowCount(); ++row)
            ASSERT_EQ(nodes.RowOf(nodes.NodeAtRow(row)), row);
    }
}

TEST_F(Tree, TheHostIsAskedForOtherPairsOrItsAnswersAreLost) {
    for (const wchar_t* name : {L"b", L"a", L"c"})
        AddProperty(nullptr, name);
    AddCategory(nullptr, L"k");
    std::wstring asked;
    int turned = 0;
    SortByHost(nodes, false, [&](const CNode& first, const CNode& second, bool& swap) {
        asked += first.Name() + second.Name() + (swap ? L"! " : L" ");
        if (first.Name() == L"b" && second.Name() == L"c" && ++turned == 1)
            swap = true;
        return true;
    });
    // A pair of different kinds is never offered. What only the host exchanges is looked at at the same place again.
    EXPECT_EQ(asked, L"ba! bc cb! ab bc ab bc ab bc ");
    EXPECT_EQ(Outline(nodes), L"+k a b c");
}

TEST_F(Tree, ARemovedPropertyLivesOnUntilTheNextSort) {
    nodes.Sort(false);
    const auto property = model.Add(L"parent");
    const auto references = [&] { return property->AddRef(), property->Release(); };
    const ULONG before = references();
    CNode* parent = nodes.Add(nullptr, NodeRelation::Child, *property.Get());
    AddProperty(parent, L"child");
    nodes.Remove(parent);
    EXPECT_EQ(references(), before);
    nodes.Sort(false); // passes over the branch that is gone
}

} // namespace
} // namespace ormisk
