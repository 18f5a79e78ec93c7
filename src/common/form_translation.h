// The texts of a form in the component's language, looked up from the message numbers that its controls hold.
#pragma once

#include <string>

#include "texts/text.h"

namespace chartproject {

struct Environment;
class Form;

/// A numbered message as forms hold it until they are translated: its Portuguese id.
[[nodiscard]] std::string TextNumber(Text message);

/// Replaces the message numbers (Portuguese ids, 1000 + k) in a form and its controls by the texts of the component's
/// language. Which property holds a number depends on the control's type name. A number that has no text, a text that
/// is not a number and a property that a control does not have are skipped. The walk never stops and never throws.
///
/// A caption comes from the number in `Tag`, which stays, so that a second pass finds it again. Tool tips, menu and tab
/// captions hold their own number and are translated once. Controls of a type without a rule take `Tag` and tool tip
/// as the full id: their language is fixed by whoever wrote the number.
void TranslateForm(Form& form, const Environment& environment);

}  // namespace chartproject
