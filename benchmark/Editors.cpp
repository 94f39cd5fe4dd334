#include "Editors.h"

#include "GridWindow.h"
#include "Sorting.h"
#include "Stopwatch.h"

#include <olectl.h>

#include <string>

namespace ormisk::bench {
namespace {

constexpr int kRuns = 101;

_variant_t Nothing() { return _variant_t(static_cast<IDispatch*>(nullptr)); }

_variant_t Font() {
    wchar_t name[] = L"Tahoma";
    FONTDESC description{sizeof description, name, {}, FW_NORMAL, 0, FALSE, FALSE, FALSE};
    description.cySize.int64 = 80000;
    ComPtr<IDispatch> font;
    Need(OleCreateFontIndirect(&description, IID_IDispatch, reinterpret_cast<void**>(font.GetAddressOf())), "a font");
    return _variant_t(font.Get());
}

struct Kind {
    const char* name;
    omEditorType type;
    _variant_t value;
};

ComPtr<::_CProperty> Add(const GridWindow& window, const Kind& kind) {
    const std::wstring text(kind.name, kind.name + std::char_traits<char>::length(kind.name));
    _bstr_t name(text.c_str());
    _variant_t value = kind.value;
    BSTR key = nullptr;
    IDispatch* source = nullptr;
    omEditorType editor = kind.type;
    ComPtr<::_CProperty> row;
    Need(window.Properties()->Add(name.GetBSTR(), &value, nullptr, &key, &source, VARIANT_TRUE, &editor, &row), "Add");
    return row;
}

} // namespace

void MeasureEditors(const GridWindow& window) {
    const Kind kinds[] = {
        {"text", omTextEditor, L"text"},
        {"number", omNumberEditor, 5L},
        {"boolean", omBooleanEditor, true},
        {"list", omListEditor, 1L},
        {"date", omDateEditor, _variant_t(43876.0, VT_DATE)},
        {"font", omFontEditor, Font()},
        {"file", omFileEditor, L"C:\\windows\\win.ini"},
        {"folder", omDirectoryEditor, L"C:\\windows"},
        {"color", omColorEditor, 255L},
        {"picture", omPictureEditor, Nothing()},
        {"custom_dialog", omCustomDialog, L"value"},
    };
    std::vector<Measured> measured;
    for (const Kind& kind : kinds) {
        const ComPtr<::_CProperty> row = Add(window, kind);
        measured.push_back({[&window] { window.Settle(); },
                            [&window, row] {
                                Need(window.Grid()->putref_SelectedProperty(row.Get()), "SelectedProperty");
                                window.Paint();
                                Need(window.Grid()->putref_SelectedProperty(nullptr), "SelectedProperty");
                                window.Paint();
                            }});
    }
    window.Settle();
    const std::vector<double> medians = MediansOf(kRuns, measured);
    for (std::size_t i = 0; i < medians.size(); ++i)
        Report(("select_row_" + std::string(kinds[i].name)).c_str(), static_cast<int>(std::size(kinds)), medians[i]);
    VARIANT nothing;
    VariantInit(&nothing);
    Need(window.Properties()->Clear(&nothing), "Clear");
    window.Settle();
}

} // namespace ormisk::bench
