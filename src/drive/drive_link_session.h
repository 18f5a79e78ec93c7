// The drive link from its making to its end.
#pragma once

#include "drive/drive_context.h"

namespace chartproject {

/// The context's drive link for as long as the session lives. The link holds the serial line that the host needs for
/// itself, so an opened one is closed on every way out. A link that could not be opened holds nothing and is not
/// closed.
class DriveLinkSession {
 public:
  /// Makes the link. Throws RunTimeError 429 when it cannot be made. @param context outlives the session
  explicit DriveLinkSession(DriveContext& context);
  /// Closes the link; after an error its own failure is ignored, since it would hide the first one.
  ~DriveLinkSession();
  DriveLinkSession(const DriveLinkSession&) = delete;
  DriveLinkSession& operator=(const DriveLinkSession&) = delete;

  /// Throws RunTimeError when the link object fails.
  void Open();
  /// Closes and releases the link. Throws RunTimeError when the link object fails.
  void Close();

 private:
  DriveContext& context_;
  bool open_ = false;
};

}  // namespace chartproject
