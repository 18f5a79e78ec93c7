// Port: side files, the program's files beside the file that they serve (spool, unfinished file, journal).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace chartproject {

class InputFile;
class OutputFile;
struct DiskSpace;

/// Access rights of a file as its system keeps them; given back as they were read.
struct FileRights {
  bool known = false;  ///< false when there is no file, or when the system keeps no such rights
  std::uint32_t mode = 0;
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
};

/// Names that are tried for one side file before its making fails.
inline constexpr int kMostSideNames = 100;

/// What a side file is made for.
struct SideFileRequest {
  std::string target;          ///< the file that it serves; links resolved (FileSystem::ResolveLink)
  std::string_view ending;     ///< its name is the target's and this ending, for example ".new"
  int names = kMostSideNames;  ///< when that name is taken: ".new1", ".new2" ...; 1 for no other name
  FileRights rights{};         ///< of the new file; when not known, the target's, or the user's default without one
  bool ownerOnly = false;      ///< without known rights: for the user alone, as in a folder that all may write
};

/// The n-th name (from 0) of a side file: "a.cht.new", "a.cht.new1"; "a.cht.tcf0", "a.cht.tcf1".
[[nodiscard]] inline std::string SideFileName(const std::string& target, std::string_view ending, int n) {
  std::string name = target;
  name += ending;
  if (n == 0) return name;
  if (name.back() == '0') name.pop_back();
  return name + std::to_string(n);
}

/// A file that was made by this object and did not exist before: never an existing file, never through a link.
/// Later accesses go to that same file or fail with RunTimeError 75. Deletes it unless it was kept or has replaced its
/// target. Operations throw RunTimeError as those of FileSystem do.
class SideFile {
 public:
  SideFile() = default;
  SideFile(const SideFile&) = delete;
  SideFile& operator=(const SideFile&) = delete;
  virtual ~SideFile() = default;

  [[nodiscard]] virtual const std::string& Name() const = 0;
  /// False when the name was removed or now belongs to another file.
  [[nodiscard]] virtual bool HasItsName() const = 0;
  /// From the start of the file. One writer or reader at a time; it does not outlive the side file.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> OpenForWriting() = 0;
  [[nodiscard]] virtual std::unique_ptr<InputFile> OpenForReading() = 0;
  /// Opens the file, appends the bytes in one write, and closes it again: the bytes are with the system when the call
  /// returns, so a crash of the program afterwards loses none of them. A call that comes a second or more after the
  /// last flush also hands them to the disk with the file's entry, so that a power cut loses a second at most.
  /// Throws SideFileLost when the name is gone, belongs to another file, or the file's length has changed, and
  /// SideFileAway when the file cannot be opened.
  /// @return the disk's sizes afterwards
  virtual DiskSpace AppendAndMeasure(std::string_view bytes) = 0;
  /// Takes the target's name in one atomic step; a file that had it is replaced.
  virtual void ReplaceTarget() = 0;
  /// Takes the target's name in one atomic step unless something has that name. @return false when something has
  [[nodiscard]] virtual bool TakeTarget() = 0;
  /// The file stays when this object goes.
  virtual void Keep() noexcept = 0;
};

}  // namespace chartproject
