// Cursor and icon files of the graphics folder.
#include "common/form_appearance.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "common/environment/environment.h"
#include "common/error_log.h"
#include "common/values/text.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/form_host.h"

namespace chartproject {

namespace {

void RequireFile(Environment& environment, const std::string& name) {
  if (!environment.ports.files.FileExists(name)) {
    throw RunTimeError(error_number::kFileNotFound, Text::kFileNotFound, {name});
  }
  (void)environment.ports.files.OpenForReading(name);  // a window that reads a pipe would wait for ever
}

}  // namespace

void LoadFormPictures(Environment& environment, Form& form) {
  using Step = std::pair<const char*, std::function<void()>>;
  for (const auto& [routine, load] : {Step{"SetFormIcon", [&] { SetFormIcon(environment, form); }},
                                      Step{"LoadButtonCursor", [&] { LoadButtonCursor(environment); }}}) {
    try {
      load();
    } catch (const RunTimeError& error) {
      const bool known =
          std::ranges::find(environment.missingPictures, error.Description()) != environment.missingPictures.end();
      if (known || !environment.forms.ShowsWindows()) continue;
      environment.missingPictures.push_back(error.Description());
      NoteRunTimeError(environment, routine, error);
    }
  }
}

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
