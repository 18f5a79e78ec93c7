// A file on its way: written in the folder of its target, and given the target's name when it is complete.
#pragma once

#include <string>

#include "backends/posix/files/posix_side_file.h"

namespace chartproject {

/// The side file of an output. It has no name until it is complete, so that a killed program leaves nothing; where the
/// file system has no such files it is "NAME.part". Removes what it wrote unless it was committed.
class PartFile {
 public:
  /// @param target the final name, for example "Test.cht.xls"; when it is a link, the file that it leads to
  /// @param rights of the file that had the name until now; when not known, those of the file that has it
  /// Throws RunTimeError when the file cannot be made, or could not replace what has its name.
  explicit PartFile(const std::string& target, const FileRights& rights = {});

  /// The name to open the part by: leads to the file that was made, even when another file took its name.
  [[nodiscard]] std::string OpenName() const { return file_.PathOfOpenFile(); }
  [[nodiscard]] std::unique_ptr<OutputFile> OpenForWriting() { return file_.OpenForWriting(); }
  /// The final name, for errors.
  [[nodiscard]] const std::string& Target() const noexcept { return target_; }
  /// Flushes the part to the disk and gives it the target's name. Throws RunTimeError.
  void Commit();

 private:
  std::string target_;
  PosixSideFile file_;
};

}  // namespace chartproject
