#include "Sorting.h"

#include "Stopwatch.h"

#include <olectl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace ormisk::bench {
namespace {

constexpr int kRuns = 5;
constexpr int kAdditions = 101;
constexpr int kMostForHost = 10000; // the host is asked about each pair of neighbours, pass after pass

// A host that hears of each comparison and agrees.
class AgreeingHost final : public IDispatch {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == DIID___OrmiskGrid;
        *object = known ? static_cast<IDispatch*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override { return S_OK; }
};

class Listening {
public:
    explicit Listening(::_OrmiskGrid* grid) {
        ComPtr<IConnectionPointContainer> container;
        Need(grid->QueryInterface(IID_PPV_ARGS(&container)), "events");
        Need(container->FindConnectionPoint(DIID___OrmiskGrid, &m_Point), "events");
        Need(m_Point->Advise(&m_Host, &m_Cookie), "events");
    }
    ~Listening() { m_Point->Unadvise(m_Cookie); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

private:
    AgreeingHost m_Host;
    ComPtr<IConnectionPoint> m_Point;
    DWORD m_Cookie = 0;
};

class Sorting {
public:
    Sorting(const GridWindow& window, int count) : m_Window(window), m_Count(count), m_Rows(Rows::Shuffled(count)) {}

    void Run() {
        Report("sort", m_Count, SortTime());
        BareSort();
        if (m_Count <= kMostForHost) {
            Need(Grid()->put_CustomSort(VARIANT_TRUE), "CustomSort");
            const Listening listening(Grid());
            Report("sort_host", m_Count, SortTime());
            Need(Grid()->put_CustomSort(VARIANT_FALSE), "CustomSort");
        }
        Additions("add_unsorted", false, false);
        Additions("add_sorted", true, false);
        Additions("add_unsorted_locked", false, true);
        Additions("add_sorted_locked", true, true);
        Fill();
    }

private:
    ::_OrmiskGrid* Grid() const { return m_Window.Grid(); }
    void Lock(bool lock) const { Need(Grid()->put_LockRefresh(lock ? VARIANT_TRUE : VARIANT_FALSE), "LockRefresh"); }
    void Sorted(bool sorted) const { Need(Grid()->put_Sorted(sorted ? VARIANT_TRUE : VARIANT_FALSE), "Sorted"); }

    void Fill() {
        Sorted(false);
        VARIANT nothing;
        VariantInit(&nothing);
        Need(m_Window.Properties()->Clear(&nothing), "Clear");
        Lock(true);
        for (int row = 0; row < m_Count; ++row)
            m_Rows.Add(m_Window.Properties(), row);
        Lock(false);
        m_Window.Settle();
    }

    double SortTime() {
        return MedianOf(
            kRuns, [this] { Fill(); },
            [this] {
                Sorted(true);
                m_Window.Paint();
            });
    }

    void BareSort() const {
        std::vector<std::wstring> names;
        const auto each = static_cast<std::ptrdiff_t>(m_Rows.CategorySize());
        Report("stable_sort", m_Count,
               MedianOf(
                   kRuns,
                   [&] {
                       names.clear();
                       for (int row = 0; row < m_Count; ++row)
                           names.emplace_back(m_Rows.Name(row));
                   },
                   [&] {
                       for (auto first = names.begin(); first != names.end();) {
                           const auto last = names.end() - first > each ? first + each : names.end();
                           std::stable_sort(first, last);
                           first = last;
                       }
                   }));
    }

    // One row more, into a category by turns; what it leaves to be painted is painted before the next one.
    void Additions(const char* name, bool sorted, bool locked) {
        Fill();
        if (sorted)
            Sorted(true);
        m_Window.Settle();
        Lock(locked);
        int row = 0;
        _bstr_t added;
        Report(name, m_Count,
               MedianOf(
                   kAdditions,
                   [&] {
                       row = (row + 7919) % m_Count;
                       added = (m_Rows.Name(row) + std::wstring(L" and more")).c_str();
                       if (!locked)
                           m_Window.Settle();
                   },
                   [&] { m_Rows.AddBeside(m_Window.Properties(), row, added.GetBSTR()); }));
        Lock(false);
    }

    const GridWindow& m_Window;
    int m_Count;
    Rows m_Rows;
};

} // namespace

void MeasureSorting(const GridWindow& window, int count) { Sorting(window, count).Run(); }

} // namespace ormisk::bench
