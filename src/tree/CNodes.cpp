#include "tree/CNodes.h"

#include "model/NumberText.h"
#include "model/ValueRules.h"

#include <algorithm>
#include <iterator>

namespace ormisk {

namespace {

const wchar_t kAddSource[] = L"CProperties.Add";

// Takes a plain decimal number, without leading zeros, off the front of a tree key; false when there is none.
bool TakeNumber(std::wstring_view& text, long& number) {
    constexpr std::size_t kMaxDigits = 9;
    const std::size_t digits = std::min(text.find_first_not_of(L"0123456789"), text.size());
    if (digits == 0 || digits > kMaxDigits || (text[0] == L'0' && digits > 1))
        return false;
    number = 0;
    for (const wchar_t digit : text.substr(0, digits))
        number = number * 10 + (digit - L'0');
    text.remove_prefix(digits);
    return true;
}

bool TakePrefix(std::wstring_view& text, std::wstring_view prefix) {
    if (!SameKey(text.substr(0, prefix.size()), prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

} // namespace

void CNodes::Init(_CNodeListener* owner, long level) {
    m_Owner = owner;
    m_Level = level;
}

CNode* CNodes::Add(CNode* relative, NodeRelation relation, CProperty& property) {
    if (ItemOf(property))
        Raise(ErrorCode::PropertyKeyPresent, kAddSource);
    return m_Owner ? Place(relative, relation, Ref<CNode>(new CNode(property))) : nullptr;
}

CNode* CNodes::Add(CNode* relative, NodeRelation relation, std::wstring& key, std::wstring_view name,
                   const VARIANT& value) {
    key = std::wstring(TrimBlanks(key));
    const CNode* parent = ParentFor(relative, relation);
    if (!parent && !key.empty() && IsNumericText(key))
        Raise(ErrorCode::InvalidKey);
    if (Category(parent, key))
        Raise(ErrorCode::PropertyKeyPresent, kAddSource);
    return m_Owner ? Place(relative, relation, Ref<CNode>(new CNode(key, name, value))) : nullptr;
}

CNode* CNodes::ParentFor(CNode* relative, NodeRelation relation) {
    return relative && relation == NodeRelation::Last ? relative->m_Parent : relative;
}

CNode* CNodes::Place(CNode* relative, NodeRelation relation, Ref<CNode> added) {
    if (relative && relative->m_Tree != this)
        return nullptr;
    CNode* parent = ParentFor(relative, relation);
    if (parent && !parent->m_Branch) {
        m_Parents[parent->m_NodeId] = parent;
        parent->m_Branch = std::make_unique<Branch>();
    }
    CNode* node = added.Get();
    node->m_Parent = parent;
    Branch& siblings = SiblingsOf(*node);
    siblings.nodes.push_back(std::move(added));
    siblings.rows.Append(node->Rows());
    ListUnsorted(siblings, parent);
    node->m_Tree = this;
    node->m_Level = parent ? parent->m_Level + 1 : m_Level;
    node->m_SiblingIndex = static_cast<long>(siblings.nodes.size());
    node->m_NodeId = m_NextId++;
    node->m_Sequence = m_NextSequence++;
    if (!node->IsCategory())
        m_Properties.Insert(node);
    else if (!node->Key().empty())
        m_Categories.Insert(node);
    ++m_Count;
    m_FilingOrder.clear();
    RowsChanged(parent);
    return node;
}

// What a node's subtree takes on screen changed, and with it that of all above it.
void CNodes::RowsChanged(const CNode* node) const {
    for (; node && !node->m_Uncounted; node = node->m_Parent) {
        node->m_Uncounted = true;
        m_Uncounted.push_back(node);
    }
}

// From the bottom up, so that each node finds its own branch counted.
void CNodes::CountRows() const {
    std::sort(m_Uncounted.begin(), m_Uncounted.end(),
              [](const CNode* a, const CNode* b) { return a->m_Level > b->m_Level; });
    for (const CNode* node : m_Uncounted) {
        node->m_Uncounted = false;
        node->Siblings()->rows.Set(static_cast<std::size_t>(node->m_SiblingIndex) - 1, node->Rows());
    }
    m_Uncounted.clear();
}

long CNodes::VisibleRowCount() const {
    CountRows();
    return m_Roots.rows.Total();
}

CNode* CNodes::RootAt(long index) const {
    return index >= 1 && index <= RootCount() ? m_Roots.nodes[static_cast<std::size_t>(index) - 1].Get() : nullptr;
}

CNode* CNodes::ItemAt(long position) const {
    return position >= 1 && position <= m_Count ? FilingOrder()[static_cast<std::size_t>(position) - 1] : nullptr;
}

CNode* CNodes::GetByTreeKey(std::wstring_view treeKey) const {
    long parent = 0;
    long index = 0;
    const bool wellFormed = TakePrefix(treeKey, L"P") && TakeNumber(treeKey, parent) && TakePrefix(treeKey, L"_I") &&
                            TakeNumber(treeKey, index) && treeKey.empty();
    if (!wellFormed)
        return nullptr;
    if (parent == 0)
        return RootAt(index);
    const auto found = m_Parents.find(parent);
    return found == m_Parents.end() ? nullptr : found->second->ChildAt(index);
}

const std::vector<CNode*>& CNodes::FilingOrder() const {
    if (m_FilingOrder.empty()) {
        const auto append = [this](const Branch& branch) {
            for (const Ref<CNode>& node : branch.nodes)
                m_FilingOrder.push_back(node.Get());
        };
        append(m_Roots);
        for (std::size_t i = 0; i < m_FilingOrder.size(); ++i) // NOLINT(modernize-loop-convert): it grows meanwhile
            if (const Branch* branch = m_FilingOrder[i]->m_Branch.get())
                append(*branch);
        std::sort(m_FilingOrder.begin(), m_FilingOrder.end(),
                  [](const CNode* a, const CNode* b) { return a->m_Sequence < b->m_Sequence; });
    }
    return m_FilingOrder;
}

std::vector<Ref<CNode>> CNodes::All() const {
    std::vector<Ref<CNode>> nodes;
    nodes.reserve(static_cast<std::size_t>(m_Count));
    for (CNode* node : FilingOrder())
        nodes.emplace_back(node);
    return nodes;
}

void CNodes::Remove(CNode* node) {
    if (!node || node->m_Tree != this)
        return;
    std::vector<Ref<CNode>> removed{Ref<CNode>(node)};
    CollectSubtrees(removed);
    if (std::ranges::any_of(removed, [](const Ref<CNode>& gone) { return gone->m_Uncounted; }))
        CountRows();
    Branch& siblings = SiblingsOf(*node);
    CNode* parent = node->m_Parent;
    const auto gap = siblings.nodes.begin() + (node->m_SiblingIndex - 1);
    const std::size_t position = static_cast<std::size_t>(node->m_SiblingIndex) - 1;
    siblings.rows.Remove(position);
    if (position < siblings.sorted)
        --siblings.sorted;
    for (auto later = siblings.nodes.erase(gap); later != siblings.nodes.end(); ++later) {
        --(*later)->m_SiblingIndex;
        (*later)->m_Sequence = m_NextSequence++;
    }
    RowsChanged(parent);
    m_FilingOrder.clear();

    for (const Ref<CNode>& gone : removed) {
        if (gone->IsCategory())
            m_Categories.Erase(gone.Get());
        else
            m_Properties.Erase(gone.Get());
        m_Parents.erase(gone->m_NodeId);
    }
    m_Count -= static_cast<long>(removed.size());
    Detach(removed);
}

void CNodes::Clear() {
    std::vector<Ref<CNode>> removed = std::move(m_Roots.nodes);
    m_Roots = {};
    m_Categories.Clear();
    m_Properties.Clear();
    m_Parents.clear();
    m_Uncounted.clear();
    m_FilingOrder.clear();
    m_Unsorted.clear();
    m_SortedDescending.reset();
    m_NextId = kFirstId;
    m_Count = 0;
    CollectSubtrees(removed);
    Detach(removed);
}

void CNodes::CollectSubtrees(std::vector<Ref<CNode>>& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (const Branch* branch = nodes[i]->m_Branch.get())
            nodes.insert(nodes.end(), branch->nodes.begin(), branch->nodes.end());
}

// All are cut off before the caller lets the first go: a property that goes with its node can call the host.
void CNodes::Detach(const std::vector<Ref<CNode>>& nodes) {
    for (const Ref<CNode>& node : nodes) {
        node->m_Tree = nullptr;
        node->m_Parent = nullptr;
        node->m_Branch = nullptr;
    }
}

void CNodes::SwapNodes(CNode* first, CNode* second) {
    const bool siblings = first && second && first != second && first->m_Tree == this && second->m_Tree == this &&
                          first->m_Parent == second->m_Parent;
    if (!siblings)
        return;
    Branch& branch = SiblingsOf(*first);
    std::swap(branch.nodes[static_cast<std::size_t>(first->m_SiblingIndex) - 1],
              branch.nodes[static_cast<std::size_t>(second->m_SiblingIndex) - 1]);
    const long place = first->m_SiblingIndex;
    PutAt(branch, static_cast<std::size_t>(second->m_SiblingIndex) - 1);
    PutAt(branch, static_cast<std::size_t>(place) - 1);
    m_FilingOrder.clear();
    m_SortedDescending.reset();
}

CNode* CNodes::NodeAtRow(long row) const {
    if (row < 0 || row >= VisibleRowCount())
        return nullptr;
    const Branch* branch = &m_Roots;
    while (true) {
        const RowCounts::Place place = branch->rows.Find(row);
        CNode* node = branch->nodes[place.position].Get();
        if (place.row == 0)
            return node;
        row = place.row - 1;
        branch = node->m_Branch.get();
    }
}

long CNodes::RowOf(const CNode* node) const {
    if (!node || node->m_Tree != this || node->m_Hidden)
        return -1;
    CountRows();
    long row = 0;
    while (true) {
        row += node->Siblings()->rows.Before(static_cast<std::size_t>(node->m_SiblingIndex) - 1);
        node = node->m_Parent;
        if (!node)
            return row;
        if (node->m_Hidden || !node->m_Expanded)
            return -1;
        ++row;
    }
}

void CNodes::VisibilityChanged(CNode* node) {
    if (node && node->m_Tree == this && !node->IsCategory()) {
        node->m_Hidden = !node->m_Property->IsVisible();
        RowsChanged(node);
    }
}

} // namespace ormisk
