// The lowest layer of the component's state: what any routine may need.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/environment/settings.h"
#include "platform/ports.h"
#include "texts/language.h"

namespace chartproject {

class FormHost;

/// The host's title over every message box, and the name under which settings are stored.
inline constexpr const char* kHostTitle = "Kestrel v5.60";
/// The component's own name, the title over run-time errors.
inline constexpr const char* kApplicationTitle = "ChartProject";

/// A setting as it was when it was last read or saved.
struct KnownSetting {
  std::optional<std::string> stored;  ///< what the store held; nothing when it had no such key
  std::string value;                  ///< the value that resulted from it, as it would be saved
};

/// Filled when an instance of the component is created. The layers above add their own state to it (DriveContext,
/// Component), so a routine names in its signature how much it can see.
struct Environment {
  Ports& ports;
  FormHost& forms;
  Settings settings{};
  std::map<std::string, KnownSetting> knownSettings{};  ///< by key
  Language language = Language::kPortuguese;
  std::string helpFile{};
  std::string profileFolder{};  ///< where the error log goes while strBin is empty; empty on the host's own system
  std::vector<std::string> missingPictures{};  ///< reported already: once a process is enough
  bool bDecimalPoint = true;                   ///< the user's locale writes decimals with a full stop
  std::string buttonCursorFile{};              ///< the hand cursor of buttons, once loaded
};

}  // namespace chartproject
