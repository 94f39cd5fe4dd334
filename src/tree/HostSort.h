#pragma once

#include "tree/CNodes.h"

#include <functional>

namespace ormisk {

// The built-in decision whether two siblings of one kind are to be exchanged comes in, that of the host goes out.
// False: there is nothing left to sort.
using AskHost = std::function<bool(const CNode& first, const CNode& second, bool& swap)>;

// Sorts a tree by exchanging neighbours, with the host asked about each pair of the same kind, until a pass over the
// siblings exchanges none; each subtree is done on the first pass. Answers that never settle keep it going. The host
// may change the tree meanwhile: what it takes away is passed over.
void SortByHost(CNodes& tree, bool descending, const AskHost& ask);

} // namespace ormisk
