#include "tree/HostSort.h"

#include "tree/SiblingOrder.h"

namespace ormisk {

namespace {

class HostSort {
public:
    HostSort(CNodes& tree, bool descending, const AskHost& ask) : m_Tree(tree), m_Descending(descending), m_Ask(ask) {}

    void Sort() {
        m_Levels.push_back({});
        while (!m_Levels.empty() && !m_Ended)
            Advance(m_Levels.back());
    }

private:
    // Siblings in work, those above them waiting: nodes may be nested to any depth.
    struct Level {
        Ref<CNode> parent;    // null for the roots
        Ref<CNode> node = {}; // where the pass stands; null before it
        Ref<CNode> next = {}; // to be compared with it, once what is below is sorted
        bool firstPass = true;
        bool again = false;
    };

    void Advance(Level& level) {
        if (!level.node) {
            level.node = Ref<CNode>(level.parent ? level.parent->FirstChild() : m_Tree.FirstRootNode());
            if (level.node)
                SortBelow(level, level.node);
            else
                m_Levels.pop_back();
        } else if (!level.next) {
            level.next = Ref<CNode>(level.node->NextSibling());
            if (level.next)
                SortBelow(level, level.next);
            else
                EndPass(level);
        } else {
            bool swapped = false;
            level.node = CompareAndSwap(level.node, level.next, swapped);
            level.next = nullptr;
            level.again = level.again || swapped;
        }
    }

    void SortBelow(const Level& level, const Ref<CNode>& node) {
        if (level.firstPass && node->ChildCount() > 0)
            m_Levels.push_back({.parent = node});
    }

    void EndPass(Level& level) {
        // A pass that ran onto a node that was taken away has not seen the rest.
        if (level.again || !level.node->Tree())
            level = {.parent = level.parent, .firstPass = false};
        else
            m_Levels.pop_back();
    }

    // The node from which the pass goes on.
    Ref<CNode> CompareAndSwap(const Ref<CNode>& first, const Ref<CNode>& second, bool& swapped) {
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
    std::vector<Level> m_Levels;
    bool m_Ended = false;
};

} // namespace

void SortByHost(CNodes& tree, bool descending, const AskHost& ask) {
    if (tree.Count() > 1)
        HostSort(tree, descending, ask).Sort();
}

} // namespace ormisk
