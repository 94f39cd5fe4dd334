#include "tree/CategoryWalk.h"

#include "tree/CategoryPath.h"

namespace ormisk {

CNode* WalkCategoryPath(CNodes& nodes, std::wstring_view category, std::wstring_view separator,
                        const CategoryLook& look) {
    static const _variant_t noValue(L"");
    CNode* current = nullptr;
    std::wstring key; // with the segments in front that the tree refused
    std::wstring_view segment;
    while (NextCategorySegment(category, separator, segment)) {
        AppendCategorySegment(key, segment);
        CNode* node = nodes.Category(current, key);
        if (!node) {
            // Refused, the walk goes on from the root.
            IgnoringFailures([&] { node = nodes.Add(current, NodeRelation::Child, key, segment, noValue); });
            if (node) {
                node->SetBold(look.bold);
                node->SetForeColor(look.foreColor);
                node->SetBackColor(look.backColor);
                node->SetAppearance(look.appearance);
            }
        }
        current = node;
        if (current)
            key.clear();
    }
    return current;
}

} // namespace ormisk
