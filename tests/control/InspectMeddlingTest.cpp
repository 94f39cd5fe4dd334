// Hosts and objects that turn on the grid in the middle of a load.

#include "InspectTools.h"

namespace ormisk::test {
namespace {

struct Meddling {
    const char* name;
    void (*act)(GridContainer& host, const Inspected& object);
};

const Meddling kMeddlings[] = {
    {"clears", [](GridContainer& host, const Inspected&) { host.Clear(); }},
    {"removes the last row's parent",
     [](GridContainer& host, const Inspected&) {
         if (host.Count() > 1)
             host.Remove(host.Count() - 1);
     }},
    {"replaces the nested object",
     [](GridContainer& host, const Inspected&) {
         for (long i = 1; i <= host.Count(); ++i)
             if (PropertyName(host.Item(i).Get()) == L"Child")
                 host.Item(i)->putref_Value(kNothing);
     }},
    {"loads the same",
     [](GridContainer& host, const Inspected& object) { Load(host.grid.Get(), object.Get(), 2, true); }},
    {"loads more", [](GridContainer& host, const Inspected& object) { Load(host.grid.Get(), object.Get(), 2, false); }},
    {"unlocks", [](GridContainer& host, const Inspected&) { host->put_LockRefresh(VARIANT_FALSE); }},
    {"loses its type", [](GridContainer&, const Inspected& object) { object.Put(L"Shape", 2L); }},
    {"lets the control go", [](GridContainer& host, const Inspected&) { host.LetGo(); }},
};

// The object tells of each use of a member of its own; the host is told of each row.
void LoadMeddled(const Meddling& meddling, bool byObject) {
    GridContainer host;
    const Inspected object, child(1);
    object.Put(L"Child", child.Get());
    int raised = 0;
    const auto meddle = [&] {
        if (host.grid && ++raised <= 200)
            meddling.act(host, object);
    };
    Function callback(meddle);
    if (byObject)
        object.Put(L"Callback", &callback);
    else
        host.events.on[L"AddingProperty"] = [&](const EventCall&) { meddle(); };
    const ComPtr<OrmiskGrid> grid = host.grid;
    Load(grid.Get(), object.Get(), 2);
    EXPECT_GT(raised, 0);
    EXPECT_EQ(Read(grid, &OrmiskGrid::get_LockRefresh), VARIANT_FALSE);
    host.events.on.clear();
    object.Put(L"Callback", kNothing);
    object.Put(L"Shape", 0L);
    object.Put(L"Child", child.Get());
    if (host.grid) {
        Load(grid.Get(), object.Get(), 2);
        EXPECT_EQ(host.Count(), 42);
    }
    object.Put(L"Child", kNothing);
}

TEST_F(InspectTest, HandlersAndObjectsMayDoAnythingDuringALoad) {
    for (const Meddling& meddling : kMeddlings)
        for (const bool byObject : {false, true}) {
            SCOPED_TRACE(std::string(meddling.name) + (byObject ? ", the object" : ", the host"));
            LoadMeddled(meddling, byObject);
        }
}

TEST_F(InspectTest, AHandlerThatAlwaysLoadsComesToAnEnd) {
    GridContainer host;
    const Inspected object(1);
    int raised = 0;
    host.events.on[L"AddingProperty"] = [&](const EventCall&) {
        ++raised;
        Load(host.grid.Get(), object.Get(), 1, false);
    };
    EXPECT_TRUE(Load(host.grid.Get(), object.Get()));
    EXPECT_EQ(raised, 4 + 4 * 4);
    EXPECT_EQ(host.Count(), 4);
}

} // namespace
} // namespace ormisk::test
