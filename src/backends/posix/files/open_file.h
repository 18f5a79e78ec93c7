// Open files on a POSIX system: opened without waiting, regular files only.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace chartproject {

/// Owns a file descriptor; a negative number means none.
class Descriptor {
 public:
  explicit Descriptor(int number) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor();

  [[nodiscard]] int Number() const noexcept { return number_; }
  /// Another descriptor of the same open file. Throws RunTimeError. @param name for the error
  [[nodiscard]] Descriptor Duplicate(const std::string& name) const;
  /// 0, or -1 with errno.
  int Close() noexcept;

 private:
  int number_;
};

/// Opens a regular file; with O_NOFOLLOW a link is refused with 75. Throws NotARegularFile, RunTimeError.
/// @param flags of open(2), without O_TRUNC: what is opened is known only afterwards
[[nodiscard]] Descriptor OpenRegular(const std::string& name, int flags);
/// The same. @param status receives what the system says of the opened file
[[nodiscard]] Descriptor OpenRegular(const std::string& name, int flags, struct stat& status);

/// Appends the bytes in one write; a part that fitted is taken back when the rest did not.
/// @param file opened with O_APPEND; @param name for errors
void AppendWhole(const Descriptor& file, std::string_view bytes, const std::string& name);

/// @param name for errors
[[nodiscard]] std::unique_ptr<InputFile> MakeInputFile(Descriptor file, std::string name);
[[nodiscard]] std::unique_ptr<OutputFile> MakeOutputFile(Descriptor file, std::string name);

/// Flushes a folder's entries to the disk. Some file systems cannot do this, and some folders may not be opened; that
/// is not an error, as the entry is made all the same. Throws RunTimeError 57.
void SyncFolder(const std::string& folder);

/// Sizes of the disk that holds an open file. Throws RunTimeError.
[[nodiscard]] DiskSpace SpaceOfOpenFile(const Descriptor& file, const std::string& name);

}  // namespace chartproject
