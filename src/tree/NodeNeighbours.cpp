#include "tree/CNodes.h"

// The way from a node to those around it.

namespace ormisk {

namespace {

CNode* NodeAt(const Branch* branch, long index) {
    const bool there = branch && index >= 1 && index <= static_cast<long>(branch->nodes.size());
    return there ? branch->nodes[static_cast<std::size_t>(index) - 1].Get() : nullptr;
}

bool OpensChildren(const CNode& node) { return !node.IsHidden() && node.Expanded() && node.ChildCount() > 0; }

// Where the walk stands when it comes to a node from below. A hidden node is not entered: its subtree is not on screen.
CNode* LastVisibleDescendant(CNode* node) {
    while (OpensChildren(*node))
        node = node->ChildAt(node->ChildCount());
    return node;
}

} // namespace

std::wstring CNode::TreeKey() const {
    return L"P" + std::to_wstring(m_Parent ? m_Parent->m_NodeId : 0) + L"_I" + std::to_wstring(m_SiblingIndex);
}

const Branch* CNode::Siblings() const {
    if (!m_Tree)
        return nullptr;
    return m_Parent ? m_Parent->m_Branch.get() : &m_Tree->m_Roots;
}

CNode* CNode::SiblingAt(long index) const { return NodeAt(Siblings(), index); }

CNode* CNode::ChildAt(long index) const { return NodeAt(m_Branch.get(), index); }

CNode* CNode::FirstRoot() const { return m_Tree ? m_Tree->FirstRootNode() : nullptr; }

CNode* CNode::FirstSibling() const { return SiblingAt(1); }

CNode* CNode::LastSibling() const { return m_Tree ? SiblingAt(static_cast<long>(Siblings()->nodes.size())) : nullptr; }

CNode* CNode::PrevSibling() const { return SiblingAt(m_SiblingIndex - 1); }

CNode* CNode::NextSibling() const { return SiblingAt(m_SiblingIndex + 1); }

bool CNode::IsLastSibling() const { return m_Tree && !NextSibling(); }

bool CNode::IsDescendantOf(const CNode* node) const {
    const CNode* above = m_Parent;
    while (above && above != node)
        above = above->m_Parent;
    return above != nullptr;
}

bool CNode::IsWithinHidden() const {
    const CNode* node = this;
    while (node && !node->m_Hidden)
        node = node->m_Parent;
    return node != nullptr;
}

// The step that leaves a subtree; hidden nodes are passed over with theirs.
CNode* CNode::AdvanceAfter(const CNode* node) {
    while (node) {
        CNode* next = node->NextSibling();
        if (next && !next->m_Hidden)
            return next;
        node = next ? next : node->m_Parent;
    }
    return nullptr;
}

CNode* CNode::NextVisible() const {
    if (!OpensChildren(*this))
        return AdvanceAfter(this);
    CNode* first = FirstChild();
    return first->m_Hidden ? AdvanceAfter(first) : first;
}

CNode* CNode::PrevVisible() const {
    const CNode* from = this;
    while (true) {
        CNode* previous = from->PrevSibling();
        CNode* candidate = previous ? LastVisibleDescendant(previous) : from->m_Parent;
        if (!candidate || !candidate->m_Hidden)
            return candidate;
        from = candidate;
    }
}

} // namespace ormisk
