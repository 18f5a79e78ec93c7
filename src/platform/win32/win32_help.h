// Opens help files with the system's viewers.
#pragma once

#include "platform/help.h"

namespace chartproject::win32 {

class Win32Help : public Help {
 public:
  void ShowContext(const std::string& helpFile, std::int32_t context) override;
};

}  // namespace chartproject::win32
