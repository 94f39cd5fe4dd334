#pragma once

#include <oaidl.h>
#include <olectl.h>
#include <windows.h>

#include <string>

namespace ormisk {

// The arguments of a late-bound call, by their position from 0. A value of the wrong type is a Failure that tells
// which.
class CallArguments {
public:
    explicit CallArguments(const DISPPARAMS& passed) : m_Passed(passed) {}

    int Count() const { return static_cast<int>(m_Passed.cArgs); }
    std::wstring Text(int position) const;
    double Number(int position) const;
    int Integer(int position) const;
    OLE_COLOR Color(int position) const; // a number of 32 bits, signed or not

    // The same for an argument that may be left out.
    int Integer(int position, int absent) const { return Given(position) ? Integer(position) : absent; }
    std::wstring Text(int position, const wchar_t* absent) const { return Given(position) ? Text(position) : absent; }

    POINT Point(int position) const { return {Integer(position), Integer(position + 1)}; }

private:
    bool Given(int position) const;
    const VARIANT& At(int position) const { return m_Passed.rgvarg[Count() - 1 - position]; }

    const DISPPARAMS& m_Passed;
};

} // namespace ormisk
