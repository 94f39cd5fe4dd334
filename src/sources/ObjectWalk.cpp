#include "sources/ObjectWalk.h"

#include "model/UpperCase.h"
#include "sources/MemberEditor.h"
#include "sources/SitedControl.h"

namespace ormisk {

namespace {

// Readable, and nothing of that name is a plain function.
bool IsReadableProperty(unsigned kinds) {
    return (kinds & INVOKE_PROPERTYGET) != 0 &&
           (kinds & ~static_cast<unsigned>(INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) == 0;
}

bool IsBrowsable(const MemberInfo& member) { return (member.attributeMask & FUNCFLAG_FNONBROWSABLE) == 0; }

std::wstring KeyOf(const CProperty* parent, const std::wstring& name) {
    std::wstring key = parent ? parent->Key() + L"_" + name : name;
    MakeUpper(key);
    return key;
}

} // namespace

bool ObjectWalk::InspectObject(CProperty* parent, IDispatch* target, bool clear, bool autoUpdate, long depth) {
    if (depth < 1)
        return true;
    const ComPtr<IDispatch> held(target); // clearing can let it go
    if (clear)
        m_Rows.Clear();
    Enter(parent, target, autoUpdate, depth);
    while (!m_Levels.empty())
        if (!Advance(*m_Levels.back()))
            m_Levels.pop_back();
    return true;
}

void ObjectWalk::Enter(CProperty* parent, IDispatch* object, bool autoUpdate, long depth) {
    if (depth < 1 || !object)
        return;
    IgnoringFailures([&] {
        auto level = std::make_unique<Level>();
        level->parent = parent;
        level->parentValue = parent ? ObjectOf(parent->Value()) : nullptr;
        level->object = object;
        const auto inner = InnerControl(object);
        level->onForm = inner.has_value();
        level->target = inner ? *inner : level->object;
        level->autoUpdate = autoUpdate;
        level->depth = depth;
        level->type = m_Types.Of(level->target.Get());
        level->items = level->type.members->GetFilteredMembers(false);
        if (level->items.empty())
            return;
        level->categories = Query<ICategorizeProperties>(level->target);
        m_Levels.push_back(std::move(level));
    });
}

// The rows go below a parent that is still there and still holds the object.
bool ObjectWalk::IsOpen(const Level& level) const {
    if (!m_Rows.IsOpen())
        return false;
    return !level.parent || (level.parent->IsFiled() && ObjectOf(level.parent->Value()) == level.parentValue);
}

// One member further; false at the end.
bool ObjectWalk::Advance(Level& level) {
    FinishRow(level);
    if (!IsOpen(level))
        return false;
    if (level.nextItem < level.items.size()) {
        const SearchItem& item = *level.items[level.nextItem++];
        IgnoringFailures([&] { AddMember(level, item); });
        return true;
    }
    return level.onForm && AddStandardControlProperties(level);
}

void ObjectWalk::FinishRow(Level& level) {
    if (!level.row)
        return;
    IgnoringFailures([&] {
        if (level.rowMember)
            ApplyMemberInfo(*level.rowMember, *level.row.Get());
        else
            ApplyStandardProperty(*level.rowStandard, *level.row.Get());
    });
    level.row = nullptr;
}

void ObjectWalk::AddMember(Level& level, const SearchItem& item) {
    const MemberInfo* member = level.type.members->Reader(item);
    if (item.hidden || !IsReadableProperty(item.invokeKinds) || !member)
        return;
    if (!IsBrowsable(*member) || member->parameterCount != 0)
        return;
    std::wstring category;
    if (MapMemberCategory(level.categories.Get(), *member, level.type.locale, category) == kNilCategory)
        return;
    const NamedProperty property(level.object.Get(), item.name);
    NewProperty row{.name = item.name, .source = level.object.Get(), .autoUpdate = level.autoUpdate};
    row.editorType = EditorTypeForMember(*member);
    row.readOnly = IsReadOnlyMember(property, item.invokeKinds);
    if (!RaiseAddingProperty(item.name, category, row.editorType) || !IsOpen(level))
        return;
    _variant_t value; // stays Empty when it cannot be read
    property.Get(value);
    // The row holds the interface that its child rows are going to mirror.
    if (V_VT(&value) == VT_UNKNOWN) {
        if (const ComPtr<IDispatch> members = Query<IDispatch>(V_UNKNOWN(&value)))
            value = static_cast<IDispatch*>(members.Get());
    }
    row.value = &value;
    row.category = category;
    if (IsOpen(level))
        AddMemberRow(level, *member, row);
}

void ObjectWalk::AddMemberRow(Level& level, const MemberInfo& member, NewProperty& row) {
    const std::wstring key = KeyOf(level.parent.Get(), member.name);
    row.key = key;
    level.row = m_Rows.Add(level.parent.Get(), row);
    level.rowMember = &member;
    if (!level.row)
        return;
    level.row->SetUnicode(false);
    EnterValueOf(*level.row.Get(), level);
}

void ObjectWalk::EnterValueOf(CProperty& row, const Level& level) {
    if (const ComPtr<IDispatch> object = DispatchOf(row.Value()))
        Enter(&row, object.Get(), true, level.depth - 1);
}

// The next of them; false at the end.
bool ObjectWalk::AddStandardControlProperties(Level& level) {
    const auto table = StandardControlProperties();
    if (level.nextStandard >= table.size())
        return false;
    const StandardProperty& property = table[level.nextStandard++];
    IgnoringFailures([&] { AddStandardProperty(level, property); });
    return true;
}

// A name that the control declares itself has its row already, under the same key.
void ObjectWalk::AddStandardProperty(Level& level, const StandardProperty& standard) {
    const std::wstring name = standard.name;
    if (m_Rows.HasKey(name))
        return;
    const NamedProperty property(level.object.Get(), name);
    _variant_t value;
    if (FAILED(property.Get(value)) || HoldsObject(value) != standard.isObject)
        return;
    std::wstring category = standard.category;
    NewProperty row{.name = name, .value = &value, .source = level.object.Get(), .autoUpdate = level.autoUpdate};
    row.editorType = standard.editorType;
    if (!RaiseAddingProperty(name, category, row.editorType) || !IsOpen(level))
        return;
    row.category = category;
    row.key = standard.isObject ? std::wstring_view(name) : std::wstring_view();
    row.readOnly = standard.testsWriting &&
                   IsReadOnlyMember(property, standard.isObject ? INVOKE_PROPERTYPUTREF : INVOKE_PROPERTYPUT);
    if (!IsOpen(level))
        return;
    level.row = m_Rows.Add(nullptr, row);
    level.rowMember = nullptr;
    level.rowStandard = &standard;
    if (level.row && standard.isObject)
        EnterValueOf(*level.row.Get(), level);
}

bool ObjectWalk::RaiseAddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType) {
    bool cancel = false;
    IgnoringFailures([&] { m_Rows.RaiseAddingProperty(name, category, editorType, cancel); });
    return !cancel;
}

} // namespace ormisk
