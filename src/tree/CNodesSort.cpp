#include "tree/CNodes.h"
#include "tree/SiblingOrder.h"

#include <algorithm>
#include <utility>

namespace ormisk {

namespace {

SiblingKey KeyOf(const CNode& node) { return {node.IsCategory(), node.Name()}; }

// A node in work. Keys are read once: a comparison then costs no walk through node and property.
struct Entry {
    SiblingKey key;
    Ref<CNode> node;
};

} // namespace

void CNodes::ListUnsorted(Branch& branch, const CNode* parent) {
    if (m_SortedDescending && !branch.listed) {
        branch.listed = true;
        m_Unsorted.push_back(parent ? parent->m_NodeId : 0);
    }
}

void CNodes::NameChanged(const CNode* node) {
    if (!node || node->m_Tree != this)
        return;
    Branch& siblings = SiblingsOf(*node);
    siblings.sorted = 0;
    ListUnsorted(siblings, node->m_Parent);
}

void CNodes::Sort(bool descending) {
    const std::vector<long> unsorted = std::exchange(m_Unsorted, {});
    if (m_SortedDescending == descending) {
        for (const long number : unsorted)
            if (number == 0)
                SortBranch(m_Roots, descending);
            else if (const auto parent = m_Parents.find(number); parent != m_Parents.end())
                SortBranch(*parent->second->m_Branch, descending);
        return;
    }
    m_Roots.sorted = 0;
    SortBranch(m_Roots, descending);
    for (const auto& [number, parent] : m_Parents) {
        parent->m_Branch->sorted = 0;
        SortBranch(*parent->m_Branch, descending);
    }
    m_SortedDescending = descending;
}

void CNodes::SortBranch(Branch& branch, bool descending) {
    branch.listed = false;
    if (branch.sorted + 1 == branch.nodes.size())
        PlaceLast(branch, descending);
    else if (branch.sorted < branch.nodes.size())
        SortAll(branch, descending);
    branch.sorted = branch.nodes.size();
}

void CNodes::SortAll(Branch& branch, bool descending) {
    std::vector<Entry> entries;
    entries.reserve(branch.nodes.size());
    for (Ref<CNode>& node : branch.nodes)
        entries.push_back({KeyOf(*node), std::move(node)});
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& a, const Entry& b) { return OutOfOrder(b.key, a.key, descending); });
    for (std::size_t i = 0; i < entries.size(); ++i) {
        branch.nodes[i] = std::move(entries[i].node);
        PutAt(branch, i);
    }
    m_FilingOrder.clear();
}

// All but the last are in order: it goes behind its equals.
void CNodes::PlaceLast(Branch& branch, bool descending) {
    const auto last = branch.nodes.end() - 1;
    const SiblingKey key = KeyOf(**last);
    const auto place = std::partition_point(
        branch.nodes.begin(), last, [&](const Ref<CNode>& node) { return !OutOfOrder(KeyOf(*node), key, descending); });
    std::rotate(place, last, branch.nodes.end());
    for (auto position = static_cast<std::size_t>(place - branch.nodes.begin()); position < branch.nodes.size();
         ++position) {
        PutAt(branch, position);
    }
    m_FilingOrder.clear();
}

// What stands there now learns of its place; a node that moved is filed anew.
void CNodes::PutAt(Branch& branch, std::size_t position) {
    CNode& node = *branch.nodes[position];
    const long index = static_cast<long>(position) + 1;
    if (node.m_SiblingIndex != index) {
        node.m_SiblingIndex = index;
        node.m_Sequence = m_NextSequence++;
    }
    branch.rows.Set(position, node.Rows());
}

} // namespace ormisk
