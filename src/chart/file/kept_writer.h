// Keeps a survey for the next opening of the same file.
#pragma once

#include <memory>
#include <string>

#include "chart/file/kept_layout.h"

namespace chartproject {

/// Writes in pieces that take well under a millisecond each, without waiting for the disk: what a power cut damages,
/// the checksum shows. The oldest kept surveys go where the room for all of them is used up.
class KeptWriter {
 public:
  /// Nothing throws: a survey that cannot be kept is made anew the next time. @param files,survey,index outlive the
  /// writer and do not change meanwhile; the other parameters as those of KeptReader
  KeptWriter(FileSystem& files, const std::string& chartFile, const std::string& key, const FileSurvey& survey,
             const LineIndex& index);
  ~KeptWriter();
  KeptWriter(const KeptWriter&) = delete;
  KeptWriter& operator=(const KeptWriter&) = delete;

  /// Writes the next piece. True while something is left.
  bool WriteOn();

 private:
  void Begin(const std::string& chartFile, const std::string& key);
  void MakeRoom(const std::string& folder, std::uint64_t bytes);
  void WriteHead(const std::string& key);
  void WriteOffsets();
  void WriteBlocks();
  void Write(std::string_view bytes);
  void WriteSum();

  FileSystem& files_;
  const FileSurvey& survey_;
  const LineIndex& index_;
  std::unique_ptr<SideFile> file_;
  std::unique_ptr<OutputFile> output_;
  std::int64_t joined_ = 1;  ///< blocks of the survey that become one
  std::size_t blocks_ = 0;   ///< that are kept, of each series
  kept::Head head_;
  kept::Checksum sum_;
  std::size_t series_ = 0;   ///< that is written now
  std::size_t next_ = 0;     ///< block of it
  std::size_t offsets_ = 0;  ///< of the line index, that are written
};

}  // namespace chartproject
