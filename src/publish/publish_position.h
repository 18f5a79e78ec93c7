// How far a recording was sent, in a small text file beside it: what a sender must know to go on after any end.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/file_system.h"
#include "publish/row_moments.h"

namespace chartproject {

/// The file of "Test.cht" is "Test.cht.published".
inline constexpr std::string_view kPositionEnding = ".published";
[[nodiscard]] std::string PositionName(const std::string& chartFile);

/// A place between two points, and what the moments of those after it depend on.
struct SendPlace {
  std::int64_t next = 1;  ///< number of the point that comes next
  RowMoments::Anchor anchor;
  friend bool operator==(const SendPlace&, const SendPlace&) = default;
};

/// One recording in one database.
struct PublishPosition {
  std::string address{};          ///< LinePoster::Address
  std::string measurement{};      ///< of the lines
  std::string recording{};        ///< RecordingMark of its header: the file may be beside another recording by now
  std::string series{};           ///< SeriesKey as it was sent first: other tags would make every point a second one
  bool rowTimes = false;          ///< it was sent while it ran, by the times of its rows; the real times are for others
  std::int64_t acknowledged = 0;  ///< number of the last point that the server acknowledged
  SendPlace resume{};             ///< where a sender goes on after a break
  std::int64_t completed = 0;     ///< when all of the finished recording was acknowledged first, seconds since 1970 UTC
  bool settled = false;           ///< its end was sent once more, a while after
  friend bool operator==(const PublishPosition&, const PublishPosition&) = default;
};

/// Positions that are kept in one file; the oldest goes.
inline constexpr std::size_t kMostPositions = 16;

/// All positions of a file; none when it is not there or not such a file. What is out of range is left out, as the file
/// may come from anybody. Throws RunTimeError when it cannot be read.
[[nodiscard]] std::vector<PublishPosition> LoadPositions(FileSystem& files, const std::string& name);

/// Writes them. Throws RunTimeError, also when the name is that of somebody's own file.
/// @param chartFile gives the file its rights
void SavePositions(FileSystem& files, const std::string& name, const std::string& chartFile,
                   const std::vector<PublishPosition>& positions);

}  // namespace chartproject
