#pragma once

#include <oaidl.h>
#include <windows.h>

#include <vector>

namespace ormisk {

// The arguments of an event in the form in which a script procedure can write to them: each by-reference one stands in
// for the original as a reference to a variant.
class EventArguments {
public:
    // The originals outlive the object.
    explicit EventArguments(DISPPARAMS& original);
    ~EventArguments();
    EventArguments(const EventArguments&) = delete;
    EventArguments& operator=(const EventArguments&) = delete;

    DISPPARAMS& Parameters() { return m_Parameters; }

    // Gives the originals what the procedure left in the stand-ins, converted to the type of each original.
    // Throws a Failure when a value cannot be converted.
    void WriteBack();

private:
    DISPPARAMS& m_Original;
    std::vector<VARIANT> m_Passed;
    std::vector<VARIANT> m_StandIns;
    DISPPARAMS m_Parameters;
};

} // namespace ormisk
