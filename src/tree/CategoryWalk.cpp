#include "tree/CategoryWalk.h"

#include "tree/CategoryPath.h"

namespace ormisk {

CNode* WalkCategoryPath(CNodes& nodes, std::wstring_view category, std::wstring_view separator,
                        const CategoryLook& look) {
    static const _variant_t noValue(L"");
    CNode* current = nullptr;
    std::wstring path;
    std::wstring_view segment;
    while (NextCategorySegment(category, separator, segment)) {
        AppendCategorySegment(path, segment);
        CNode* node = nodes.Item(path);
        if (!node) {
            // Refused, the walk goes on from the root.
            IgnoringFailures([&] { node = nodes.Add(current, NodeRelation::Child, path, segment, noValue); });
            if (node) {
                node->SetBold(look.bold);
                node->SetForeColor(look.foreColor);
                node->SetBackColor(look.backColor);
                node->SetAppearance(look.appearance);
            }
        }
        current = node;
    }
    return current;
}

} // namespace ormisk
