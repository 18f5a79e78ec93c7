// A file on its way: written beside its target under another name, and given the target's name when it is complete.
#pragma once

#include <string>

namespace chartproject {

/// Removes what it wrote unless it was committed.
class PartFile {
 public:
  /// @param target the final name, for example "Test.cht.xls"; the part is "Test.cht.xls.part"
  explicit PartFile(const std::string& target);
  ~PartFile();
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  [[nodiscard]] const std::string& Name() const noexcept { return partName_; }
  /// Flushes the part to the disk and renames it to the target. Throws RunTimeError.
  void Commit();

 private:
  std::string target_;
  std::string partName_;
  bool committed_ = false;
};

}  // namespace chartproject
