// The drive links that the program offers.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "drive/drive_link.h"
#include "links/serial/serial_link.h"
#include "platform/ports.h"

namespace chartproject {

/// The stored choice of drives: a link as --link takes it, in a section of the program's own.
inline constexpr const char* kLinkSection = "MyLink";
inline constexpr const char* kLinkKey = "strLink";
inline constexpr const char* kSimulatedLink = "sim";

/// What links are made of; everything outlives them.
struct LinkSurroundings {
  FileSystem& files;
  SettingsStore& settings;
  Clock& clock;
  WaitUntil waitUntil;  ///< how time passes on the clock while a scripted drive is slow
  const Locale& locale;
  std::function<Language()> language;
  std::string trace;      ///< file of the line's frames, "-" for the standard error; empty for none
  bool realClock = true;  ///< real drives know no virtual one
};

/// What a link text leaves out: the port, the time and the trials that the settings carry.
[[nodiscard]] LineSettings LineDefaults(SettingsStore& settings, const NumberFormat& numbers);

/// The link that is stored; that of simulated drives when none is.
[[nodiscard]] std::string StoredLink(SettingsStore& settings);

/// @param link "sim" for simulated drives, "scenario:FILE" for a script, or the text of a line. Throws RunTimeError for
/// a script that is missing or malformed, for a malformed line, for one with a virtual clock, and for a trace without
/// a line.
[[nodiscard]] std::unique_ptr<DriveLinkFactory> MakeDriveLinks(const std::string& link,
                                                               const LinkSurroundings& surroundings);

/// The links of a running program, where the user may choose others.
class ChosenLinks : public DriveLinkFactory {
 public:
  ChosenLinks(std::string link, LinkSurroundings surroundings)
      : link_(std::move(link)), surroundings_(std::move(surroundings)) {}

  /// Checks the choice: throws what MakeDriveLinks throws.
  void Make();
  [[nodiscard]] std::unique_ptr<DriveLink> Create(const LinkWait& wait) override;
  /// The links made from now on. Throws what MakeDriveLinks throws; then the choice stays as it was.
  void Choose(const std::string& link);
  [[nodiscard]] const std::string& Link() const noexcept { return link_; }
  [[nodiscard]] const LinkSurroundings& Surroundings() const noexcept { return surroundings_; }

 private:
  std::string link_;
  LinkSurroundings surroundings_;
  std::unique_ptr<DriveLinkFactory> factory_;
};

}  // namespace chartproject
