// The dialog's place on the screen, kept between its displays.
#pragma once

namespace chartproject {

struct Component;
class Form;

/// Puts the form where it was closed last, maximised if it was; in the middle of the screen when no place is stored.
void RestoreWindowPlace(Form& form, Component& component);
/// Stores the place of a form that has a window (none on the command line), and whether it is maximised.
void SaveWindowPlace(const Form& form, Component& component);

}  // namespace chartproject
