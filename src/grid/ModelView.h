#pragma once

#include "model/PropertyOwner.h"
#include "tree/CNodes.h"

#include <functional>

namespace ormisk {

class Grid;
struct GridState;

// Handlers of one fill may begin another; one inside that is left out.
inline constexpr int kMostFills = 2;

// Keeps both trees, the selection and the screen in step with the model. It hears of every change of the properties and
// of the nodes, and raises the public events that follow from them.
class ModelView final : public PropertyOwner, public _CNodeListener {
public:
    explicit ModelView(Grid& grid) : m_Grid(grid) {}

    // Rows came, went or moved. Scroll range and rows anew, unless refresh is locked; an open editor follows its row.
    void RefreshView();
    // Runs a body that adds many rows: they are filed only, and the view follows at the end.
    void Fill(const std::function<void()>& body);
    // Sorts the tree on screen in the present order; with CustomSort the host is asked about each pair. Nothing while
    // the host is being asked for another sort. Raises what a handler raises; the rows that are exchanged by then stay
    // so.
    void Sort(bool nameButtonClicked);
    // A header was clicked. Nothing while the host is being asked.
    void HeaderSort(bool nameButtonClicked);
    // The view itself is stored already: the other tree comes on screen, with the selection carried over.
    void ViewChanged();
    // Expands the whole path, or collapses its last category. A path that leads nowhere changes nothing.
    void ExpandCategory(const std::wstring& path, bool expand);
    // Expands every row above one, the outermost first.
    void ExpandParents(const CNode& node);
    // Every category node takes one of the control's category settings.
    void MarkCategories(void (*mark)(CNode&, const GridState&));
    // The separator in the category texts of all properties; rows stay where they are.
    void ReplaceSeparator(const std::wstring& oldSeparator, const std::wstring& newSeparator);

    // PropertyOwner
    OLE_COLOR PropertyBackColor() const override;
    OLE_COLOR PropertyForeColor() const override;
    std::wstring EditorParam(omEditorType type, const std::wstring& name) const override;
    void PropertyChangedEx(CProperty& property, Attribute attribute) override;
    void OnPropertyAdded(CProperty& property, CProperty* parent) override;
    void OnPropertyDeleted(CProperty& property) override;
    void OnPropertiesCleared() override;
    const IUnknown* Control() const override;
    // _CNodeListener
    void NodePropertyChanged(CNode& node) override;
    void NodeStateChanging(CNode& node, VARIANT_BOOL& cancel) override;

private:
    CNode* CategoryNodeFor(CProperty& property);
    void Open(const std::vector<Ref<CNode>>& path, bool restartEditor);
    // A property that is out of the collection and not yet out of the trees; the lock as it was.
    struct Removal {
        ComPtr<CProperty> property;
        bool locked = false;
    };
    Removal BeginRemoval(ComPtr<CProperty> property);
    CProperty* FirstChildOf(const CProperty& property) const;
    void EndRemoval(const Removal& removal);
    void RemoveCategorizedNode(CNode* node);
    bool AskHost(const CNode& first, const CNode& second, bool nameButtonClicked, bool& swap);
    void ShowRowChanged(CNode* node);
    void UpdateChildren(CProperty& property);
    void VisibilityChanged(CProperty& property);
    bool IsSelectedWithin(const CProperty& property) const;
    void ValueChanged(CProperty& property);
    template <class F> void Trapped(F&& statement);

    Grid& m_Grid;
    bool m_Sorting = false;   // the host is being asked
    bool* m_Opened = nullptr; // while a path is being opened: whether rows on screen came by that
    // The category of the last addition: bulk additions mostly follow each other in one category.
    std::wstring m_LastCategory;
    Ref<CNode> m_LastCategoryNode;
};

} // namespace ormisk
