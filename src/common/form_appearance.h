// The hand cursor of buttons and the icon of forms, from the host's graphics folder.
#pragma once

namespace chartproject {

struct Environment;
class CommandButton;
class Form;

/// Looks up the cursor file (strGraphics, "\Cursor\Select.cur") for SetButtonCursor.
/// Throws RunTimeError 53 when the file is not there.
void LoadButtonCursor(Environment& environment);

/// Gives a button the custom pointer, with the loaded cursor; the back end's own hand when none was loaded.
void SetButtonCursor(const Environment& environment, CommandButton& button);

/// Gives a form the icon strGraphics, "\Icon\General\Kestrel.ico". Throws RunTimeError 53 when the file is not there.
void SetFormIcon(Environment& environment, Form& form);

/// Loads cursor and icon for a form that opens. A missing file is not a reason to refuse the form: the back end has
/// default pictures, and the error log gets one record a process, none where no window is shown.
void LoadFormPictures(Environment& environment, Form& form);

}  // namespace chartproject
