#pragma once

#include <string>
#include <vector>

namespace ormisk {

extern const char kUsage[];

enum class ScriptLanguage { VBScript, JScript };

// What the command line asks for.
struct Options {
    std::wstring script;
    ScriptLanguage language = ScriptLanguage::VBScript;
    std::wstring screenshot; // empty: none is taken at the end
    int width = 320;         // of the grid, in pixels
    int height = 400;
    std::vector<std::wstring> scriptArguments;
};

// Reads the arguments that follow the program's name. What comes after the script, or after "--", and is not one of our
// options is the script's own. Throws std::invalid_argument with one sentence for a command line that cannot be used.
Options ParseOptions(const std::vector<std::wstring>& arguments);

} // namespace ormisk
