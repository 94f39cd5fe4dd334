#include "tree/HostSort.h"

#include "tree/SiblingOrder.h"

namespace ormisk {

namespace {

class HostSort {
public:
    HostSort(CNodes& tree, bool descending, const AskHost& ask) : m_Tree(tree), m_Descending(descending), m_Ask(ask) {}

    void SortNodes(const Ref<CNode>& parent) {
        bool again = true;
        for (bool firstPass = true; again && !m_Ended; firstPass = false) {
            again = false;
            Ref<CNode> node(parent ? parent->FirstChild() : m_Tree.FirstRootNode());
            if (!node)
                return;
            if (firstPass)
                SortBelow(node);
            for (Ref<CNode> next(node->NextSibling()); next && !m_Ended; next = Ref<CNode>(node->NextSibling())) {
                if (firstPass)
                    SortBelow(next);
                bool swapped = false;
                node = CompareAndSwap(node, next, swapped);
                again = again || swapped;
            }
            // A pass that ran onto a node that was taken away has not seen the rest.
            again = again || !node->Tree();
        }
    }

private:
    void SortBelow(const Ref<CNode>& node) {
        if (node->ChildCount() > 0 && !m_Ended)
            SortNodes(node);
    }

    // The node from which the pass goes on.
    Ref<CNode> CompareAndSwap(const Ref<CNode>& first, const Ref<CNode>& second, bool& swapped) {
        if (m_Ended)
            return second;
        swapped =
            OutOfOrder({first->IsCategory(), first->Name()}, {second->IsCategory(), second->Name()}, m_Descending);
        // What has to move on by the built-in order goes on, whatever the host says: a pair that only the host
        // exchanges is looked at once more.
        Ref<CNode> carry = swapped ? first : second;
        if (first->IsCategory() == second->IsCategory() && first->Tree() && second->Tree())
            m_Ended = !m_Ask(*first, *second, swapped);
        if (!swapped || m_Ended)
            return second;
        m_Tree.SwapNodes(first.Get(), second.Get());
        return carry;
    }

    CNodes& m_Tree;
    const bool m_Descending;
    const AskHost& m_Ask;
    bool m_Ended = false;
};

} // namespace

void SortByHost(CNodes& tree, bool descending, const AskHost& ask) {
    if (tree.Count() > 1)
        HostSort(tree, descending, ask).SortNodes({});
}

} // namespace ormisk
