#include "automation/ClassFactory.h"
#include "automation/LiveObject.h"
#include "editors/CEditor.h"
#include "grid/OrmiskGrid.h"
#include "server/Registration.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (classId == __uuidof(::OrmiskGrid))
        return ormisk::ClassFactory<ormisk::OrmiskGrid>::Give(iid, object);
    if (classId == __uuidof(::CEditor))
        return ormisk::ClassFactory<ormisk::CEditor>::Give(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return ormisk::LiveObjects() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return ormisk::RegisterServer(); }

STDAPI DllUnregisterServer() { return ormisk::UnregisterServer(); }
