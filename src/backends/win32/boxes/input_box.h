// A small dialog that asks for one line of text.
#pragma once

#include <string>

#include "platform/dialogs.h"
#include "platform/help.h"

namespace chartproject::win32 {

/// The text entered; empty when cancelled. F1 opens the request's help file.
[[nodiscard]] std::string AskForText(const InputBoxRequest& request, Help& help);

}  // namespace chartproject::win32
