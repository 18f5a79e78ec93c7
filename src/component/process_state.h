// What one instance leaves in its process for the next one.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "recording/component.h"

namespace chartproject {

/// An instance reads the settings anew but finds everything else as the last one left it: the language of a setting
/// that names none, the drives while no project is open, the header fields that a chart file lacks. Instances that live
/// at the same time (hosts with several threads) work on copies of their own; the last to end is the one remembered.
class ProcessState {
 public:
  /// Fills a new instance. Any thread.
  void Give(Component& component) const;
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
