#pragma once

#include <functional>
#include <string>

namespace ormisk {

class ControlSite;
class Form;

// Keeps all controls of the form in a file: class, place and stored settings of each. What a control has and no file
// can keep is told on standard error. Throws a Failure; a file that is there already stays as it is then.
void SaveForm(const Form& form, const std::wstring& path);

// Makes the controls of a file anew, in the places of those of the same name and class; others are added, and controls
// of which the file says nothing stay. `loaded` hears of each that is there. Lines that cannot be taken are told on
// standard error and passed over. Throws a Failure, with the form as it was, for a file that is none of a form and for
// a class that cannot be created or is not that of the form's control.
void LoadForm(Form& form, const std::wstring& path, const std::function<void(ControlSite&)>& loaded);

} // namespace ormisk
