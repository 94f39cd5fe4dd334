#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ormisk {

// The text in which a form is kept: a first line with the version, then one setting a line,
//   Control.Member = value            what the form knows of the control
//   Control.Object.Name = value       what the control itself has stored
// Each line says by itself what it is about, so that damage to one costs no other.

struct FormFont {
    static constexpr int kNormal = 400;
    static constexpr int kBold = 700;

    std::wstring name;
    std::int64_t size = 0; // in ten thousandths of a point
    int weight = kNormal;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
    int charset = 0;

    bool operator==(const FormFont&) const = default;
};

using FormNothing = std::monostate;
using FormPicture = std::vector<std::uint8_t>;
using FormValue = std::variant<FormNothing, bool, std::int32_t, double, std::wstring, FormFont, FormPicture>;

struct FormSetting {
    std::wstring name;
    FormValue value;
    int line = 0; // where it was read, from 1
};

struct FormControl {
    std::wstring name;
    std::vector<FormSetting> members;
    std::vector<FormSetting> own; // of the control itself
};

// A line that was passed over.
struct FormTrouble {
    int line = 0;
    std::wstring text;
};

struct FormContent {
    std::vector<FormControl> controls;
    std::vector<FormTrouble> troubles;
};

// Names are equal in any case of the letters A to Z.
bool IsSameName(std::wstring_view a, std::wstring_view b);

// The setting of that name; null when there is none.
const FormSetting* FindSetting(const std::vector<FormSetting>& settings, std::wstring_view name);

// Numbers are finite.
std::wstring WriteForm(const std::vector<FormControl>& controls);

// Reads all lines that are sound. Of lines that set the same the first counts. A later version is read as far as it is
// known. Throws std::invalid_argument for a text whose first line is not that of a form.
FormContent ReadForm(std::wstring_view text);

// The number that a person would write for a value of single precision.
double DecimalOf(float value);

} // namespace ormisk
