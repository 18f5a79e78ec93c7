// A small window that shows the host's help file.
#pragma once

#include <QPointer>

#include "backends/qt/help_page.h"
#include "backends/qt/qt_dialogs.h"
#include "platform/help.h"

namespace chartproject {

/// Shows help files that are text or HTML, at the anchor named as the context number. A help file that is missing or of
/// another kind is named in a message, and so is the target of a link that leads out of its folder.
class QtHelp : public Help {
 public:
  explicit QtHelp(LanguageSource language);
  ~QtHelp() override;
  void ShowContext(const std::string& helpFile, std::int32_t context) override;

 private:
  void Say(Text text, const std::string& name) const;

  LanguageSource language_;
  QPointer<HelpPage> viewer_;  ///< goes with the dialog that it was opened from
};

}  // namespace chartproject
