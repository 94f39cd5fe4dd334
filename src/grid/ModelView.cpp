#include "grid/ModelView.h"

#include "grid/Grid.h"
#include "tree/CategoryPath.h"
#include "tree/CategoryWalk.h"
#include "tree/HostSort.h"
#include "win/Meanwhile.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace ormisk {

// Runs one statement. A failure is reported, the focus goes back to the rows, and the caller goes on.
template <class F> void ModelView::Trapped(F&& statement) {
    if (!m_Grid.Trapped(std::forward<F>(statement)))
        m_Grid.m_Panes.m_picTreeContainer.TakeFocus();
}

const IUnknown* ModelView::Control() const { return m_Grid.m_Host.Outer(); }

OLE_COLOR ModelView::PropertyBackColor() const { return static_cast<OLE_COLOR>(m_Grid.m_State.propertyBackColor); }

OLE_COLOR ModelView::PropertyForeColor() const { return static_cast<OLE_COLOR>(m_Grid.m_State.propertyForeColor); }

std::wstring ModelView::EditorParam(omEditorType type, const std::wstring& name) const {
    return m_Grid.m_EditorParams.Get(name, type);
}

void ModelView::RefreshView() {
    if (m_Grid.m_State.lockRefresh) {
        m_Grid.m_Session.FollowRow(); // clicks go by the rows as they are
        return;
    }
    m_Grid.m_Panes.UpdateScrollBar();
    m_Grid.m_Panes.RepaintRows();
}

void ModelView::Fill(const std::function<void()>& body) {
    {
        const Meanwhile locked(m_Grid.m_State.lockRefresh, true); // what the host had set comes back
        body();
    }
    if (!m_Grid.IsAlive())
        return;
    m_Grid.m_Panes.RecalcLayout();
    m_Grid.m_Panes.m_picDescPane.Invalidate(true); // a new row may be selected by now
    m_Grid.m_Panes.RepaintRows();
}

CNode* ModelView::CategoryNodeFor(CProperty& property) {
    const GridState& state = m_Grid.m_State;
    if (m_LastCategoryNode && m_LastCategoryNode->Tree() && property.Category() == m_LastCategory)
        return m_LastCategoryNode.Get();
    const CategoryLook look{state.categoryBold, static_cast<OLE_COLOR>(state.categoryForeColor),
                            static_cast<OLE_COLOR>(state.categoryBackColor),
                            static_cast<omAppearance>(state.categoryAppearance)};
    CNode* node = WalkCategoryPath(m_Grid.m_CategorizedNodes, property.Category(), state.categorySeparator, look);
    m_LastCategory = property.Category();
    m_LastCategoryNode = Ref<CNode>(node);
    return node;
}

void ModelView::OnPropertyAdded(CProperty& property, CProperty* parent) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const GridState& state = m_Grid.m_State;
    if (!HasCategory(property.Category(), state.categorySeparator))
        property.SetCategory(state.defaultCategory);
    CNode* categorizedParent = nullptr;
    CNode* alphabeticParent = nullptr;
    if (parent) {
        categorizedParent = m_Grid.m_CategorizedNodes.ItemOf(*parent);
        alphabeticParent = m_Grid.m_AlphabeticNodes.ItemOf(*parent);
    } else if (!property.Category().empty()) {
        // A path that the tree refuses leaves the property higher up.
        IgnoringFailures([&] { categorizedParent = CategoryNodeFor(property); });
    }
    IgnoringFailures([&] { m_Grid.m_CategorizedNodes.Add(categorizedParent, NodeRelation::Child, property); });
    IgnoringFailures([&] { m_Grid.m_AlphabeticNodes.Add(alphabeticParent, NodeRelation::Child, property); });
    property.SetUnicode(state.unicode);
    if (state.sorted)
        IgnoringFailures([&] { Sort(true); });
    if (!m_Grid.m_CProperties)
        return; // a handler ended the control
    RefreshView();
    m_Grid.m_Events.PropertyAdded(property);
}

void ModelView::Sort(bool nameButtonClicked) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const GridState& state = m_Grid.m_State;
    const bool descending = state.sortOrder == omDescending;
    if (!state.customSort) {
        m_Grid.m_ActiveNodes->Sort(descending);
    } else if (!m_Sorting) {
        m_Sorting = true;
        try {
            SortByHost(*m_Grid.m_ActiveNodes, descending, [&](const CNode& first, const CNode& second, bool& swap) {
                return AskHost(first, second, nameButtonClicked, swap);
            });
        } catch (...) {
            m_Sorting = false;
            if (m_Grid.IsAlive()) {
                m_Grid.m_Session.FollowRow();
                RefreshView();
            }
            throw;
        }
        m_Sorting = false;
    }
    if (m_Grid.IsAlive())
        m_Grid.m_Session.FollowRow();
}

// False when a handler ended the control. One may also want no more questions.
bool ModelView::AskHost(const CNode& first, const CNode& second, bool nameButtonClicked, bool& swap) {
    if (!m_Grid.m_State.customSort)
        return m_Grid.m_CProperties != nullptr;
    if (first.IsCategory())
        m_Grid.m_Events.CategoryCompare(first.Name(), second.Name(), nameButtonClicked, swap);
    else if (first.Property() && second.Property())
        m_Grid.m_Events.PropertyCompare(*first.Property(), *second.Property(), nameButtonClicked, swap);
    return m_Grid.m_CProperties != nullptr;
}

void ModelView::HeaderSort(bool nameButtonClicked) {
    GridState& state = m_Grid.m_State;
    if (!state.sortOnHeaderClick || m_Sorting)
        return;
    if (state.sorted)
        state.sortOrder = state.sortOrder == omAscending ? omDescending : omAscending;
    state.sorted = true;
    IgnoringFailures([&] { Sort(nameButtonClicked); }); // a click has no caller to hear of it
    if (!m_Grid.IsAlive())
        return;
    IgnoringFailures([&] { m_Grid.m_Selection.SetSelectedNode(nullptr); });
    if (!m_Grid.IsAlive())
        return;
    m_Grid.m_Panes.RecalcLayout();
    m_Grid.m_Panes.m_picNameHeader.Invalidate(true);
    m_Grid.m_Panes.RepaintRows();
}

// Reports of the model come while the host holds a property, or the collection, and perhaps no control. Child rows go
// first, each with its own event; they may be nested to any depth.
void ModelView::OnPropertyDeleted(CProperty& property) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const ComPtr<CProperties> properties = m_Grid.m_CProperties;
    std::vector<Removal> removals;
    removals.push_back(BeginRemoval(ComPtr<CProperty>(&property)));
    while (true) {
        if (CProperty* child = FirstChildOf(*removals.back().property.Get())) {
            removals.push_back(BeginRemoval(properties->TakeOut(child->InternalKey())));
            continue;
        }
        const Removal removal = std::move(removals.back());
        removals.pop_back();
        if (removals.empty()) {
            EndRemoval(removal);
            return;
        }
        // What a handler of the child's event raises does not keep the rest in the trees.
        IgnoringFailures([&] { EndRemoval(removal); });
        IgnoringFailures([&] { properties->TellRemoved(*removal.property.Get()); });
    }
}

ModelView::Removal ModelView::BeginRemoval(ComPtr<CProperty> property) {
    const bool locked = m_Grid.m_State.lockRefresh;
    m_Grid.m_State.lockRefresh = true;
    m_Grid.m_Session.NodeGoes(m_Grid.m_ActiveNodes->ItemOf(*property.Get()));
    return {std::move(property), locked};
}

// Null when there is none that is still in the collection.
CProperty* ModelView::FirstChildOf(const CProperty& property) const {
    const CNode* node = m_Grid.m_CategorizedNodes.ItemOf(property);
    for (const CNode* child = node ? node->FirstChild() : nullptr; child; child = child->NextSibling())
        if (CProperty* found = child->Property())
            return found;
    return nullptr;
}

void ModelView::EndRemoval(const Removal& removal) {
    RemoveCategorizedNode(m_Grid.m_CategorizedNodes.ItemOf(*removal.property.Get()));
    m_Grid.m_AlphabeticNodes.Remove(m_Grid.m_AlphabeticNodes.ItemOf(*removal.property.Get()));
    if (!m_Grid.m_CProperties)
        return; // a handler of a child's event ended the control
    m_Grid.m_State.lockRefresh = removal.locked;
    m_Grid.m_Selection.DropLostSelection();
    RefreshView();
    m_Grid.m_Events.PropertyDeleted(*removal.property.Get());
}

// A category lives as long as it has children: those that have no other go along.
void ModelView::RemoveCategorizedNode(CNode* node) {
    const auto hasNoOther = [](const CNode* parent) {
        return parent && parent->IsCategory() && parent->ChildCount() == 1;
    };
    while (node && hasNoOther(node->ParentNode()))
        node = node->ParentNode();
    m_Grid.m_CategorizedNodes.Remove(node);
}

void ModelView::OnPropertiesCleared() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Session.Drop();
    m_Grid.m_Tips.Hide();
    m_LastCategoryNode = nullptr;
    m_Grid.m_CategorizedNodes.Clear();
    m_Grid.m_AlphabeticNodes.Clear();
}

void ModelView::PropertyChangedEx(CProperty& property, Attribute attribute) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const ComPtr<CProperty> held(&property);
    if (!property.IsFiled()) {
        // Removed, but kept by the host: it has no row any more, and its key may be another's.
        if (attribute == Attribute::Value)
            Trapped([&] { m_Grid.m_Events.PropertyValueChanged(property); });
        return;
    }
    if (attribute == Attribute::Name)
        for (CNodes* nodes : {&m_Grid.m_AlphabeticNodes, &m_Grid.m_CategorizedNodes})
            nodes->NameChanged(nodes->ItemOf(property)); // the nodes read it from the property
    if (m_Grid.m_Selection.SelectedProperty() == &property)
        m_Grid.m_Panes.m_picDescPane.Invalidate(true); // name and help
    const Ref<CNode> node(m_Grid.m_ActiveNodes->ItemOf(property));
    if (attribute != Attribute::Value)
        m_Grid.m_Tips.Hide(); // rows may come, go or take another place
    Trapped([&] { ShowRowChanged(node.Get()); });
    Trapped([&] { UpdateChildren(property); });
    if (node)
        Trapped([&] { ShowRowChanged(node->ParentNode()); });
    if (attribute == Attribute::Visible)
        VisibilityChanged(property);
    else if (attribute == Attribute::Value)
        ValueChanged(property);
    else if (attribute == Attribute::Picture)
        Trapped([&] { m_Grid.m_Panes.RepaintRows(); });
}

void ModelView::ShowRowChanged(CNode* node) {
    m_Grid.m_Tips.RowChanged(node); // it may show what was there before
    m_Grid.m_Panes.InvalidateNodeRow(node);
}

// The children of a property that holds an object follow the new object at once.
void ModelView::UpdateChildren(CProperty& property) {
    const Ref<CNode> node(m_Grid.m_AlphabeticNodes.ItemOf(property));
    if (!node || node->ChildCount() == 0)
        return;
    const ComPtr<IDispatch> object = DispatchOf(property.Value());
    for (Ref<CNode> child(node->FirstChild()); child; child = Ref<CNode>(child->NextSibling())) {
        const ComPtr<CProperty> childProperty(child->Property());
        if (!childProperty)
            continue;
        childProperty->SetSourceObject(object.Get()); // the former one may be let go, which can call the host
        ShowRowChanged(m_Grid.m_ActiveNodes->ItemOf(*childProperty.Get()));
    }
}

void ModelView::VisibilityChanged(CProperty& property) {
    for (CNodes* nodes : {&m_Grid.m_AlphabeticNodes, &m_Grid.m_CategorizedNodes})
        nodes->VisibilityChanged(nodes->ItemOf(property));
    if (property.IsVisible() ? m_Grid.m_Selection.SelectedProperty() == &property : IsSelectedWithin(property))
        Trapped([&] { m_Grid.m_Session.CloseEditor(false); });
    // A handler of the commit may have shown it again, or selected another row.
    if (!property.IsVisible() && IsSelectedWithin(property))
        Trapped([&] { m_Grid.m_Selection.SetSelectedNode(nullptr); });
    if (!m_Grid.IsAlive())
        return;
    m_Grid.m_Session.FollowRow();
    m_Grid.m_Panes.m_picTreeContainer.Invalidate(true);
}

// Whether the row of the property is selected, or one below it.
bool ModelView::IsSelectedWithin(const CProperty& property) const {
    const Ref<CNode> selected = m_Grid.m_Selection.SelectedNode();
    const CNode* node = m_Grid.m_ActiveNodes->ItemOf(property);
    return selected && node && (selected.Get() == node || selected->IsDescendantOf(node));
}

void ModelView::ValueChanged(CProperty& property) {
    if (!m_Grid.m_Records.WriteThrough(property))
        return;
    if (m_Grid.m_Selection.SelectedProperty() == &property)
        Trapped([&] { m_Grid.m_Session.ReloadEditor(property); });
    Trapped([&] { m_Grid.m_Events.PropertyValueChanged(property); });
}

// Of a tree that is not on screen the host hears nothing.
void ModelView::NodeStateChanging(CNode& node, VARIANT_BOOL& cancel) {
    if (node.Tree() != m_Grid.m_ActiveNodes)
        return;
    bool refused = cancel == VARIANT_TRUE;
    if (node.Expanded())
        m_Grid.m_Events.CategoryCollapsing(node.Name(), refused);
    else
        m_Grid.m_Events.CategoryExpanding(node.Name(), refused);
    cancel = refused ? VARIANT_TRUE : VARIANT_FALSE;
}

void ModelView::NodePropertyChanged(CNode& node) {
    m_Grid.m_Session.CommitAndHide();
    if (!m_Grid.m_CProperties)
        return;
    Ref<CNode> selected = m_Grid.m_Selection.SelectedNode();
    if (node.Tree() != m_Grid.m_ActiveNodes)
        return;
    if (!node.Expanded() && selected && selected->IsDescendantOf(&node))
        selected = Ref<CNode>(&node);
    if (m_Opened && node.Expanded()) {
        *m_Opened = true;
        return;
    }
    m_Grid.m_Panes.UpdateScrollBar();
    m_Grid.m_Panes.InvalidateRowsFrom(node); // first: an editor may fail to start
    m_Grid.m_Selection.SetSelectedNode(selected);
}

void ModelView::ViewChanged() {
    m_Grid.m_ActiveNodes =
        m_Grid.m_State.activeView != omAlphabetic ? &m_Grid.m_CategorizedNodes : &m_Grid.m_AlphabeticNodes;
    m_Grid.m_Panes.UpdateScrollBar();
    if (m_Grid.m_Selection.SelectedNode()) {
        const CProperty* property = m_Grid.m_Selection.SelectedProperty();
        const Ref<CNode> node(property ? m_Grid.m_ActiveNodes->ItemOf(*property) : nullptr);
        const CNode* parent = node ? node->ParentNode() : nullptr;
        const bool reachable = m_Grid.m_State.activeView == omAlphabetic || !parent || parent->Expanded();
        m_Grid.m_Selection.SetSelectedNode(reachable ? node : Ref<CNode>());
    }
}

void ModelView::ExpandCategory(const std::wstring& path, bool expand) {
    std::wstring_view rest = TrimBlanks(path);
    std::wstring_view segment;
    std::vector<Ref<CNode>> found;
    CNode* node = nullptr;
    while (NextCategorySegment(rest, m_Grid.m_State.categorySeparator, segment)) {
        node = m_Grid.m_CategorizedNodes.Category(node, segment);
        if (!node)
            break;
        found.emplace_back(node);
    }
    const Ref<CNode> last(node);
    if (expand)
        Open(found, true);
    if (last && last->Tree())
        last->SetExpanded(expand);
}

void ModelView::ExpandParents(const CNode& node) {
    std::vector<Ref<CNode>> parents;
    for (CNode* parent = node.ParentNode(); parent; parent = parent->ParentNode())
        parents.emplace_back(parent);
    std::ranges::reverse(parents);
    Open(parents, false); // it gets its editor once it is selected
}

// One after the other, each with its event; what shows follows once, also when a handler raised on the way.
void ModelView::Open(const std::vector<Ref<CNode>>& path, bool restartEditor) {
    const Ref<CNode> selected = m_Grid.m_Selection.SelectedNode();
    bool opened = false;
    bool* const outer = std::exchange(m_Opened, &opened);
    std::exception_ptr failure;
    try {
        for (const Ref<CNode>& node : path)
            node->SetExpanded(true);
    } catch (...) {
        failure = std::current_exception();
    }
    m_Opened = outer;
    if (opened && m_Grid.IsAlive()) {
        m_Grid.m_Panes.UpdateScrollBar();
        m_Grid.m_Panes.m_picTreeContainer.Invalidate(false);
        if (restartEditor || !m_Grid.m_Selection.IsOn(selected)) // a handler's selection lost its editor on the way
            m_Grid.m_Selection.SetSelectedNode(m_Grid.m_Selection.SelectedNode());
    }
    if (failure)
        std::rethrow_exception(failure);
}

void ModelView::MarkCategories(void (*mark)(CNode&, const GridState&)) {
    for (const Ref<CNode>& node : m_Grid.m_CategorizedNodes.All())
        if (node->IsCategory())
            mark(*node, m_Grid.m_State);
    if (m_Grid.m_State.activeView != omAlphabetic)
        m_Grid.m_Panes.RepaintRows();
}

void ModelView::ReplaceSeparator(const std::wstring& oldSeparator, const std::wstring& newSeparator) {
    for (long i = 1; i <= m_Grid.m_CProperties->CountOf(); ++i)
        m_Grid.m_CProperties->At(i)->ReplaceCategorySeparator(oldSeparator, newSeparator);
    m_LastCategoryNode = nullptr;
}

} // namespace ormisk
