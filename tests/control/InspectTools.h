#pragma once

#include "GridContainer.h"

#include "automation/ByName.h"

#include "testobject.h"

namespace ormisk::test {

// The server of the test objects, from the folder of the tests.
class TestServer {
public:
    static ComPtr<IDispatch> Make();
    static bool IsIdle(); // no object of it is left
};

// A test object, read and written by name.
class Inspected {
public:
    Inspected() : object(TestServer::Make()) {}
    explicit Inspected(long shape) : Inspected() { Put(L"Shape", shape); }
    ComPtr<IDispatch> object;
    IDispatch* Get() const { return object.Get(); }
    _variant_t operator[](const wchar_t* name) const { return InvokeByName(object.Get(), name, DISPATCH_PROPERTYGET); }
    void Put(const wchar_t* name, _variant_t value) const {
        InvokeByName(object.Get(), name, HoldsObject(value) ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT, &value);
    }
};

// Loads the object with all rows before it cleared; true when the grid said so.
bool Load(OrmiskGrid* grid, IDispatch* object, long depth = 1, bool clear = true);

// A parameter of a row's editor.
inline std::wstring Param(_CProperty* row, const wchar_t* name) {
    _bstr_t value;
    row->GetEditorParam(_bstr_t(name), value.GetAddress());
    return FromBstr(value);
}

// A function as a script would give one.
class Function : public HostObject {
public:
    explicit Function(std::function<void()> body) : m_Body(std::move(body)) {}
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return m_Body(), S_OK;
    }

private:
    std::function<void()> m_Body;
};

// Tests that inspect objects, of which none may be left.
class InspectTest : public GridTest {
protected:
    void TearDown() override {
        EXPECT_TRUE(TestServer::IsIdle()) << "test objects leaked";
        GridTest::TearDown();
    }
};

} // namespace ormisk::test
