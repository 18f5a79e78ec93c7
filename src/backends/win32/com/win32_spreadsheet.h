// The installed spreadsheet application, by late-bound automation.
#pragma once

#include "platform/spreadsheet.h"

namespace chartproject::win32 {

class Win32SpreadsheetApplications : public SpreadsheetApplications {
 public:
  [[nodiscard]] std::unique_ptr<SpreadsheetApplication> AttachRunning() override;
  [[nodiscard]] std::unique_ptr<SpreadsheetApplication> Create(const std::string& targetName,
                                                               const FileRights& rights) override;
  /// Only the application itself knows its limits.
  [[nodiscard]] std::optional<WorkbookLimits> Limits(const std::string& /*targetName*/) const override {
    return std::nullopt;
  }
};

}  // namespace chartproject::win32
