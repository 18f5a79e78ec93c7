// Cursor and icon files of the graphics folder.
#include "common/form_appearance.h"

#include "common/environment/environment.h"
#include "common/values/text.h"
#include "forms/controls.h"
#include "forms/form.h"

namespace chartproject {

namespace {

void RequireFile(Environment& environment, const std::string& name) {
  if (!environment.ports.files.FileExists(name)) {
    throw RunTimeError(error_number::kFileNotFound, Text::kFileNotFound, {name});
  }
}

}  // namespace

void LoadButtonCursor(Environment& environment) {
  const std::string file = JoinPath(JoinPath(environment.settings.strGraphics, "Cursor"), "Select.cur");
  RequireFile(environment, file);
  environment.buttonCursorFile = file;
}

void SetButtonCursor(const Environment& environment, CommandButton& button) {
  button.Owner().SetButtonCursorFile(environment.buttonCursorFile);
  button.SetPointer(MousePointer::kCustom);
}

void SetFormIcon(Environment& environment, Form& form) {
  const std::string icons = JoinPath(JoinPath(environment.settings.strGraphics, "Icon"), "General");
  const std::string file = JoinPath(icons, "Kestrel.ico");
  RequireFile(environment, file);
  form.SetIconFile(file);
}

}  // namespace chartproject
