// The test objects as a server.

#include "TestObject.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    *object = nullptr;
    if (classId == __uuidof(TestObject))
        return ormisk::ClassFactory<ormisk::test::TestObject>::Give(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return ormisk::LiveObjects() == 0 ? S_OK : S_FALSE; }
