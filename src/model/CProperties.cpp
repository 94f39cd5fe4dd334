#include "model/CProperties.h"

#include "automation/EnumVariants.h"
#include "model/CollectionFailure.h"
#include "model/NumberText.h"
#include "model/ValueKind.h"
#include "model/ValueRules.h"

namespace ormisk {

namespace {

constexpr DISPID kPropertyAddedEx = 2;
constexpr DISPID kPropertyDeleted = 3;
constexpr DISPID kPropertiesCleared = 4;
const wchar_t kAddSource[] = L"CProperties.Add";

std::wstring JoinKey(std::wstring_view scope, std::wstring_view name) {
    std::wstring key;
    key.reserve(scope.size() + 1 + name.size());
    return key.append(scope).append(1, L'_').append(name);
}

// A position that is no whole number goes to the nearest; one that does not fit is none.
long PositionOf(const VARIANT& value) {
    _variant_t position;
    return SUCCEEDED(ConvertValue(value, VT_I4, position)) ? V_I4(&position) : 0;
}

bool IsGiven(const VARIANT* value) { return value && !IsMissing(*value); }

// Removed properties, which a host may keep: while the removal is told they still mirror their objects, afterwards
// nothing. Letting an object go can call the host, so it comes when all is in order again.
class Unlinking {
public:
    explicit Unlinking(std::vector<ComPtr<CProperty>> removed) : m_Removed(std::move(removed)) {
        for (const auto& property : m_Removed)
            property.Get()->SetFiled(false);
    }
    Unlinking(const Unlinking&) = delete;
    Unlinking& operator=(const Unlinking&) = delete;
    ~Unlinking() {
        for (const auto& property : m_Removed)
            property.Get()->DropSourceObject();
    }

private:
    const std::vector<ComPtr<CProperty>> m_Removed;
};

} // namespace

// Hosts may keep properties longer than their collection.
CProperties::~CProperties() { const Unlinking unlinking(m_Items.TakeAll()); }

void CProperties::Init(PropertyOwner* owner) { m_Owner = owner ? MakeRef<OwnerLink>(owner) : nullptr; }

void CProperties::ReleaseOwner() {
    if (const Ref<OwnerLink> link = m_Owner) {
        link->Cut();
        link->LetObjectsGo();
    }
}

void CProperties::LetObjectsGo() {
    if (const Ref<OwnerLink> link = m_Owner)
        link->LetObjectsGo();
}

void CProperties::CheckArguments(CProperty* parent, const NewProperty& arguments, std::wstring_view key) const {
    if (IsGiven(arguments.value) && !IsValueValidForEditor(*arguments.value, arguments.editorType))
        Raise(ErrorCode::InvalidEditorValue, kAddSource);
    if (!key.empty() && IsNumericText(key))
        Raise(ErrorCode::InvalidKey, kAddSource);
    if (!key.empty() && m_Keys.Find(FoldedKey(key)))
        Raise(ErrorCode::PropertyKeyPresent, kAddSource);
    // The probe of a child names its category too, unlike the key under which it is filed.
    if (parent && ItemByInternalKey(JoinKey(JoinKey(arguments.category, parent->InternalKey()), arguments.name)))
        Raise(ErrorCode::PropertyNamePresent, kAddSource);
}

ComPtr<CProperty> CProperties::AddProperty(CProperty* parent, const NewProperty& arguments) {
    const ComPtr<CProperties> alive(this);
    const ComPtr<CProperty> parentAlive(parent);
    const std::wstring_view key = TrimBlanks(arguments.key);
    const bool isObject = IsGiven(arguments.value) && HoldsObject(*arguments.value);
    const _variant_t held = isObject ? _variant_t(*arguments.value) : _variant_t(); // asked, it may do anything
    CheckArguments(parent, arguments, key);
    if (parent && !parent->IsFiled())
        return nullptr;

    ComPtr<CProperty> property = MakeObject<CProperty>();
    property->SetInternalKey(
        JoinKey(parent ? std::wstring_view(parent->InternalKey()) : arguments.category, arguments.name));
    if (m_Items.Find(property->FiledKey())) {
        if (!parent)
            Raise(ErrorCode::PropertyNamePresent, kAddSource);
        return nullptr; // a second child of the same name
    }
    if (!Owner())
        return nullptr;
    const VARIANT& value = IsGiven(arguments.value) && !isObject ? *arguments.value : held;
    property->Init(m_Owner, arguments.name, value, arguments.source, arguments.autoUpdate, arguments.editorType,
                   arguments.readOnly);
    property->SetKey(key);
    property->SetCategory(arguments.category);
    property->SetIndex(CountOf() + 1);
    property->SetEditorKey(arguments.editorKey);
    m_Items.Add(property);
    if (!key.empty())
        m_Keys.Insert(property.Get());
    property->SetFiled(true);

    IgnoringFailures([&] { Owner()->OnPropertyAdded(*property.Get(), parent); });
    if (HasListeners()) {
        IgnoringFailures([&] {
            _variant_t event[] = {static_cast<IDispatch*>(property.Get()), static_cast<IDispatch*>(parent)};
            Fire(kPropertyAddedEx, event, 2);
        });
    }
    return property;
}

CProperty* CProperties::At(long position) const {
    return RaisingFaults([&] { return m_Items.At(position); });
}

CProperty* CProperties::ItemByInternalKey(const std::wstring& key) const { return m_Items.Find(FoldedKey(key)); }

CProperty* CProperties::ItemByKey(std::wstring_view key) const {
    const std::wstring text(TrimBlanks(key));
    return text.empty() ? nullptr : m_Keys.Find(FoldedKey(text));
}

CProperty* CProperties::FindItem(const VARIANT& indexOrKey) const {
    if (CountOf() == 0)
        return nullptr;
    _variant_t value;
    CheckSystem(ResolveDefault(indexOrKey, value));
    const std::wstring text = TextOf(value);
    if (V_VT(&value) == VT_BSTR ? IsNumericText(text) : IsNumeric(value)) // as a key is refused
        return At(PositionOf(value));
    const FoldedKey key(text);
    CProperty* property = text.empty() ? nullptr : m_Keys.Find(key);
    return property ? property : RaisingFaults([&] { return m_Items.Get(key); });
}

ComPtr<CProperty> CProperties::TakeOut(const std::wstring& key) {
    ComPtr<CProperty> property = RaisingFaults([&] { return m_Items.Get(FoldedKey(key)); });
    m_Items.RemoveAt(property->Index());
    if (!property->Key().empty())
        m_Keys.Erase(property.Get());
    property->SetFiled(false);
    for (long i = property->Index(); i <= CountOf(); ++i)
        m_Items.At(i)->SetIndex(i);
    return property;
}

void CProperties::TellRemoved(CProperty& property) {
    const Unlinking unlinking({ComPtr<CProperty>(&property)});
    FireWith(kPropertyDeleted, property);
}

void CProperties::RemoveByInternalKey(const std::wstring& key) {
    const ComPtr<CProperties> alive(this);
    const ComPtr<CProperty> property = TakeOut(key);
    const Unlinking unlinking({property});
    if (PropertyOwner* owner = Owner())
        owner->OnPropertyDeleted(*property.Get());
    FireWith(kPropertyDeleted, *property.Get());
}

void CProperties::RemoveAll() {
    const ComPtr<CProperties> alive(this);
    m_Keys.Clear();
    const Unlinking unlinking(m_Items.TakeAll());
    if (PropertyOwner* owner = Owner())
        owner->OnPropertiesCleared();
    if (HasListeners())
        Fire(kPropertiesCleared);
}

void CProperties::FireWith(DISPID id, CProperty& property) {
    if (HasListeners()) {
        _variant_t event(static_cast<IDispatch*>(&property));
        Fire(id, &event, 1);
    }
}

// A foreign object may say anything of itself but not be the same object as ours at the place that it names.
CProperty* CProperties::Own(IUnknown* object) const {
    const ComPtr<_CProperty> claimed = Query<_CProperty>(object);
    long index = 0;
    if (!claimed || FAILED(claimed->get_Index(&index)) || index < 1 || index > CountOf())
        return nullptr;
    CProperty* property = m_Items.At(index);
    return SameObject(property->Identity(), claimed.Get()) ? property : nullptr;
}

} // namespace ormisk
