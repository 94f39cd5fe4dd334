#include "automation/EnumVariants.h"

#include "automation/SnapshotEnumerator.h"

namespace ormisk {

namespace {

struct CopyVariant {
    static HRESULT Copy(const _variant_t& from, VARIANT* to) {
        VariantInit(to);
        return VariantCopy(to, const_cast<VARIANT*>(static_cast<const VARIANT*>(&from)));
    }
    static void Clear(VARIANT* to) { VariantClear(to); }
};

} // namespace

ComPtr<IUnknown> MakeEnumerator(std::vector<_variant_t> values) {
    return SnapshotEnumerator<IEnumVARIANT, VARIANT, _variant_t, CopyVariant>::Make(std::move(values));
}

} // namespace ormisk
