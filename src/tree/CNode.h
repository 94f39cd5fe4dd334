#pragma once

#include "model/CProperty.h"
#include "tree/RowCounts.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace ormisk {

class CNode;
class CNodes;

enum class NodeKind : long { Property = 0, Category = 1 };

// The children of a node, or the roots of a tree, with the rows that each takes on screen: as of the last count.
struct Branch {
    std::vector<Ref<CNode>> nodes;
    mutable RowCounts rows;
    std::size_t sorted = 0; // so many from the front are in the order of the last sort of the tree
    bool listed = false;    // among the branches that the next sort looks at
};

// Under what a tree finds a category: its parent, null for a root, and its key.
struct CategoryPlace {
    CategoryPlace(const CNode* parent, std::wstring_view key);
    friend bool operator==(const CategoryPlace& a, const CategoryPlace& b) {
        return a.parent == b.parent && a.key == b.key;
    }

    const CNode* parent;
    FoldedKey key;
    std::uint32_t hash;
};

// Under what a tree finds the node of a property.
struct PropertyPlace {
    explicit PropertyPlace(const CProperty* property);
    friend bool operator==(const PropertyPlace& a, const PropertyPlace& b) { return a.property == b.property; }

    const CProperty* property;
    std::uint32_t hash;
};

// One row of a display tree: a category with a look and text of its own, or a thin view on a property. Made by CNodes.
// A node that was removed from its tree has neither tree nor neighbours; a Ref keeps it usable.
class CNode : public RefCounted {
public:
    ~CNode();

    NodeKind NodeType() const { return m_Category ? NodeKind::Category : NodeKind::Property; }
    bool IsCategory() const { return m_Category != nullptr; }
    // Null for a category, and once the property is out of its collection.
    CProperty* Property() const;
    // Whether this is a property that is not shown; its whole subtree then takes no rows.
    bool IsHidden() const { return m_Hidden; }

    const std::wstring& Key() const;  // of a category what it adds to the path
    const std::wstring& Name() const; // of a property node always the property's

    // Look and value: a category's own, else the property's. A node whose property is gone has the defaults, and what
    // it is given is dropped.
    bool Bold() const;
    bool Italic() const;
    omAppearance Appearance() const;
    OLE_COLOR BackColor() const; // 0xFFFFFFFF: a category that follows the control
    OLE_COLOR ForeColor() const;
    IPictureDisp* Picture() const; // borrowed
    const VARIANT& Value() const;
    std::wstring DataType() const; // "AA" of a category
    void SetBold(bool bold);
    void SetItalic(bool italic);
    void SetAppearance(omAppearance appearance);
    void SetBackColor(OLE_COLOR color);
    void SetForeColor(OLE_COLOR color);
    void SetPicture(IPictureDisp* picture);
    void SetName(const std::wstring& name); // of a category
    void SetDataType(const std::wstring& dataType);
    // Both write to a property only what differs from its value.
    void LetValue(const VARIANT& value);
    void SetValue(const VARIANT& value);
    // Only of a property node.
    omEditorType EditorType() const;
    CListItems& ListItems() const;

    bool Expanded() const { return m_Expanded; }
    // Asks the listener first when it is a category, and tells it afterwards.
    void SetExpanded(bool expanded);

    // Place in the tree.
    CNodes* Tree() const { return m_Tree; } // null once removed
    CNode* ParentNode() const { return m_Parent; }
    long NodeId() const { return m_NodeId; }
    long Level() const { return m_Level; }               // roots have the tree's, 1 as a rule
    long SiblingIndex() const { return m_SiblingIndex; } // from 1
    long ChildCount() const { return m_Branch ? static_cast<long>(m_Branch->nodes.size()) : 0; }
    std::wstring TreeKey() const; // "P" & the parent's number or 0 & "_I" & index

    // Neighbours; null where there is none.
    CNode* ChildAt(long index) const; // from 1
    CNode* FirstChild() const { return ChildAt(1); }
    CNode* FirstRoot() const;
    CNode* FirstSibling() const;
    CNode* LastSibling() const;
    CNode* PrevSibling() const;
    CNode* NextSibling() const;
    bool IsLastSibling() const;
    bool IsFirstRoot() const { return m_Tree && !m_Parent && m_SiblingIndex == 1; }
    bool IsDescendantOf(const CNode* node) const; // not of itself
    // Whether this or a node above it is hidden.
    bool IsWithinHidden() const;

    // The rows above and below on screen.
    CNode* NextVisible() const;
    CNode* PrevVisible() const;

private:
    friend class CNodes;
    struct CategoryFields;

    explicit CNode(CProperty& property);
    CNode(std::wstring key, std::wstring_view name, const VARIANT& value);

    const Branch* Siblings() const; // null once removed
    CNode* SiblingAt(long index) const;
    static CNode* AdvanceAfter(const CNode* node);
    CategoryPlace PlaceOfCategory() const;
    PropertyPlace PlaceOfProperty() const { return PropertyPlace(m_Property.Get()); }
    long Rows() const; // of the subtree, 0 when hidden

    ComPtr<CProperty> m_Property;
    std::unique_ptr<CategoryFields> m_Category;
    CNodes* m_Tree = nullptr;
    CNode* m_Parent = nullptr;
    std::unique_ptr<Branch> m_Branch; // made by the first child
    std::uint64_t m_Sequence = 0;     // order of filing in the tree
    long m_NodeId = 0;
    long m_Level = 0;
    long m_SiblingIndex = 0;
    bool m_Expanded = true;
    bool m_Hidden = false;
    mutable bool m_Uncounted = false; // its rows may be others than those in its branch
};

} // namespace ormisk
