// Message boxes with title, help folder and Help button.
#include "common/message_box.h"

#include "common/environment/environment.h"
#include "common/folder_scope.h"
#include "common/values/text.h"

namespace chartproject {

std::int16_t ShowMessage(Environment& environment, const std::string& prompt, std::int32_t buttons,
                         const std::string& helpFile, std::optional<std::int32_t> helpContext) {
  const FolderScope helpFolder(environment.ports.files, environment.settings.strHelps);
  MessageBoxRequest request{
      .prompt = VisibleLines(prompt), .style = buttons, .title = kHostTitle, .helpFile = {}, .helpContext = 0};
  if (helpContext) {
    request.style += box_style::kHelpButton;
    request.helpFile = helpFile;
    request.helpContext = *helpContext;
  }
  return environment.ports.dialogs.ShowMessageBox(request);
}

}  // namespace chartproject
