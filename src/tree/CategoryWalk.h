#pragma once

#include "tree/CNodes.h"

namespace ormisk {

// The look that new category nodes get.
struct CategoryLook {
    bool bold = false;
    OLE_COLOR foreColor = 0xFFFFFFFF;
    OLE_COLOR backColor = 0xFFFFFFFF;
    omAppearance appearance = omFlat;
};

// The node that a category text names, with every category on the way made that is not there yet. Null when the text
// names none. A segment that the tree refuses (a number as first segment) leaves what follows at the root. As long as
// the node returned belongs to the tree, the same text names it again.
CNode* WalkCategoryPath(CNodes& nodes, std::wstring_view category, std::wstring_view separator,
                        const CategoryLook& look);

} // namespace ormisk
