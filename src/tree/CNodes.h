#pragma once

#include "model/KeyTable.h"
#include "tree/CNode.h"
#include "tree/NodeListener.h"

#include <optional>
#include <unordered_map>

namespace ormisk {

// Where a new node goes, seen from its relative.
enum class NodeRelation : long { Last = 1, Child = 4 };

// A whole display tree. Nodes are found as the category below a parent, by their property, by tree key, and by their
// row on screen, all without walking. A category and a property never stand in for each other, whatever their keys. The
// tree owns its nodes, and goes through them without recursion: they may be nested to any depth.
class CNodes {
public:
    CNodes() = default;
    CNodes(const CNodes&) = delete;
    CNodes& operator=(const CNodes&) = delete;
    ~CNodes() { Clear(); }

    // `level` is that of the roots. Without an owner nothing is added and nobody told; Init(nullptr) takes it away.
    void Init(_CNodeListener* owner, long level = 1);
    _CNodeListener* Owner() const { return m_Owner; }
    long Level() const { return m_Level; }

    // The node of a property. A null relative makes a root. Raises PropertyKeyPresent for one that has a node. Null
    // without an owner.
    CNode* Add(CNode* relative, NodeRelation relation, CProperty& property);
    // A category. The key comes back trimmed; an empty one is not filed. Raises InvalidKey for a root with a numeric
    // key, and PropertyKeyPresent when the parent has such a category. Null without an owner.
    CNode* Add(CNode* relative, NodeRelation relation, std::wstring& key, std::wstring_view name, const VARIANT& value);

    // Null when there is none. Keys count in any case; a null parent: among the roots.
    CNode* Category(const CNode* parent, std::wstring_view key) const { return m_Categories.Find({parent, key}); }
    CNode* ItemOf(const CProperty& property) const { return m_Properties.Find(PropertyPlace(&property)); }
    CNode* ItemAt(long position) const; // from 1, in the order of filing: what moved was filed anew
    CNode* GetByTreeKey(std::wstring_view treeKey) const;
    CNode* FirstRootNode() const { return RootAt(1); }
    CNode* RootAt(long index) const; // from 1
    long RootCount() const { return static_cast<long>(m_Roots.nodes.size()); }
    long Count() const { return m_Count; }
    // All nodes in the order of filing.
    std::vector<Ref<CNode>> All() const;

    // A node and all below it. Nothing for null and for a node of another tree.
    void Remove(CNode* node);
    void Clear(); // numbers start again at 1000
    // Exchanges two siblings, each with its subtree.
    void SwapNodes(CNode* first, CNode* second);

    // Siblings against siblings on every level, stable: categories in front of properties, then by name, by character
    // code; descending turns both. Costs what was added, removed or renamed since the last sort in the same order.
    void Sort(bool descending);
    // To be called when a node got another name: it may stand in the wrong place now.
    void NameChanged(const CNode* node);

    // Rows on screen, from 0, without walking. What changed is counted when it is asked for, each node once.
    long VisibleRowCount() const;
    CNode* NodeAtRow(long row) const;    // null outside
    long RowOf(const CNode* node) const; // -1 when it is not displayed
    // To be called when the property behind a node was shown or hidden.
    void VisibilityChanged(CNode* node);

private:
    friend class CNode;
    static constexpr long kFirstId = 1000;

    CNode* Place(CNode* relative, NodeRelation relation, Ref<CNode> added);
    static CNode* ParentFor(CNode* relative, NodeRelation relation);
    Branch& SiblingsOf(const CNode& node) { return node.m_Parent ? *node.m_Parent->m_Branch : m_Roots; }
    void RowsChanged(const CNode* node) const;
    void CountRows() const;
    void ListUnsorted(Branch& branch, const CNode* parent);
    void SortBranch(Branch& branch, bool descending);
    void SortAll(Branch& branch, bool descending);
    void PlaceLast(Branch& branch, bool descending);
    void PutAt(Branch& branch, std::size_t position);
    static void CollectSubtrees(std::vector<Ref<CNode>>& nodes);
    static void Detach(const std::vector<Ref<CNode>>& nodes);
    const std::vector<CNode*>& FilingOrder() const;

    _CNodeListener* m_Owner = nullptr;
    long m_Level = 1;
    long m_NextId = kFirstId;
    long m_Count = 0;
    std::uint64_t m_NextSequence = 0;
    Branch m_Roots;
    KeyTable<CNode, &CNode::PlaceOfCategory> m_Categories;
    KeyTable<CNode, &CNode::PlaceOfProperty> m_Properties;
    std::unordered_map<long, CNode*> m_Parents;    // nodes that have or had children, by number
    mutable std::vector<CNode*> m_FilingOrder;     // sorted when asked for; empty when out of date
    mutable std::vector<const CNode*> m_Uncounted; // each with all above it
    std::optional<bool> m_SortedDescending;        // the order of the sorted front of every branch; none before a sort
    std::vector<long> m_Unsorted;                  // numbers of the parents of branches out of that order, 0: the roots
};

} // namespace ormisk
