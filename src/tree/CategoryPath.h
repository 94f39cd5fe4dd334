#pragma once

#include <string>
#include <string_view>

namespace ormisk {

// How a category text, segments joined by a separator, names a node of the tree.

// Whether anything is left of the text once every separator, compared exactly, is taken out.
bool HasCategory(std::wstring_view category, std::wstring_view separator);

// Takes the next segment off the front of `rest`, without the blanks around it; blank segments are passed over. False
// when there is none. A letter as separator parts in either case.
bool NextCategorySegment(std::wstring_view& rest, std::wstring_view separator, std::wstring_view& segment);

// Makes the node key of a category out of its parent's: segments are joined by a character with code 0.
void AppendCategorySegment(std::wstring& key, std::wstring_view segment);

} // namespace ormisk
