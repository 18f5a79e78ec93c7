// Letters that reach a control together with Alt: chosen for captions that name none.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace chartproject {

class Control;
class Form;

/// The control that a label or the title of a frame names: the field that follows it in the form; of several in a row,
/// which share one place, the first that is visible. Null for a label that names none, and for other controls.
[[nodiscard]] const Control* FieldOf(const Form& form, const Control& label);

/// The letter that a caption marks with "&", as a capital; "&&" is a plain ampersand.
[[nodiscard]] std::optional<char> AccessLetter(const std::string& caption);

/// Captions of buttons, check boxes and the labels of fields with "&" before their letter. A caption that has its "&"
/// already keeps it; no letter is given twice; first letters of words come before others, but a caption takes another
/// letter where that leaves one for a caption which would have none. One whose letters cannot be freed is left out, as
/// is every control that needs no letter.
[[nodiscard]] std::map<const Control*, std::string> CaptionsWithAccessKeys(const Form& form);

}  // namespace chartproject
