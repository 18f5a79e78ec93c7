// What instances share, and what one leaves in its process for the next one.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "recording/file/component.h"

namespace chartproject {

/// An instance reads the settings anew but finds everything else as the last one left it: the language of a setting
/// that names none, the drives while no project is open, the header fields that a chart file lacks. Instances of one
/// thread share a state; each thread has its own, and the last instance to end is the one remembered.
class ProcessState {
 public:
  /// The state for a thread's instances, with what the process remembers. It lives as long as any of them. Any thread.
  /// @param ports,forms,links outlive the state
  [[nodiscard]] std::unique_ptr<Component> NewState(Ports& ports, FormHost& forms, DriveLinkFactory& links) const;
  /// Remembers what an ending instance leaves. Any thread.
  void Take(const Component& component);

 private:
  struct Remembered {
    Language language = Language::kPortuguese;
    std::string helpFile;
    DriveTable driveTable;
    std::string strChartFileName;
    ChartHeader chartHeader;
    std::vector<std::string> missingPictures;
  };
  mutable std::mutex mutex_;
  Remembered remembered_;
};

}  // namespace chartproject
