// Port: the help viewer.
#pragma once

#include <cstdint>
#include <string>

namespace chartproject {

class Help {
 public:
  virtual ~Help() = default;
  /// Opens a help file at a context number. A box names the file when it is missing.
  virtual void ShowContext(const std::string& helpFile, std::int32_t context) = 0;
};

}  // namespace chartproject
