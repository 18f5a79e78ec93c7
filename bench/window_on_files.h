// The chart window without a screen: real files, or files whose bytes are worked out when they are read, everything
// else from the tests' fakes.
#pragma once

#include <sys/resource.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "backends/posix/files/posix_file_system.h"
#include "backends/posix/posix_clock.h"
#include "chart/window/chart_form.h"
#include "support/fake_ports.h"

namespace chartproject {

/// A chart file of any number of points that takes no room: the same rows again and again.
struct GeneratedRecording {
  std::string header;
  std::string rows;              ///< whole lines
  std::int64_t rowCount = 0;     ///< lines in `rows`
  std::int64_t times = 0;        ///< so often
  std::int64_t peakLine = -1;    ///< one line that has another text, counted from 0
  std::string peak{};            ///< as long as that line
  std::uint64_t peakOffset = 0;  ///< of the line in the file

  [[nodiscard]] std::uint64_t Size() const { return header.size() + rows.size() * static_cast<std::uint64_t>(times); }
  /// Puts a text into a row. @param place of it in the row
  void SetPeak(std::int64_t line, std::size_t place, std::string text) {
    const std::int64_t inRows = line % rowCount;
    std::size_t at = 0;
    for (std::int64_t i = 0; i < inRows; ++i) at = rows.find('\n', at) + 1;
    peakLine = line;
    peak = std::move(text);
    peakOffset = header.size() + rows.size() * static_cast<std::uint64_t>(line / rowCount) + at + place;
  }
};

class GeneratedFile : public InputFile {
 public:
  explicit GeneratedFile(const GeneratedRecording& recording) : recording_(recording) {}

  std::size_t Read(std::span<char> buffer) override {
    const std::uint64_t size = recording_.Size();
    const std::size_t count =
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size - std::min(at_, size)));
    std::size_t filled = 0;
    while (filled < count) {
      const std::uint64_t at = at_ + filled;
      const bool inHeader = at < recording_.header.size();
      const std::string& text = inHeader ? recording_.header : recording_.rows;
      const auto from = static_cast<std::size_t>(inHeader ? at : (at - recording_.header.size()) % text.size());
      const std::size_t piece = std::min(count - filled, text.size() - from);
      std::memcpy(buffer.data() + filled, text.data() + from, piece);
      filled += piece;
    }
    for (std::size_t i = 0; recording_.peakLine >= 0 && i < recording_.peak.size(); ++i) {
      const std::uint64_t at = recording_.peakOffset + i;
      if (at >= at_ && at < at_ + count) buffer[static_cast<std::size_t>(at - at_)] = recording_.peak[i];
    }
    at_ += count;
    return count;
  }
  void Seek(std::uint64_t offset) override { at_ = offset; }
  FileIdentity Identity() override { return {1, 1, recording_.Size(), 1}; }

 private:
  const GeneratedRecording& recording_;
  std::uint64_t at_ = 0;
};

/// The disk, and one generated recording.
class GeneratedFiles : public PosixFileSystem {
 public:
  std::string name;
  GeneratedRecording recording;

  bool FileExists(const std::string& file) override { return file == name || PosixFileSystem::FileExists(file); }
  std::unique_ptr<InputFile> OpenForReading(const std::string& file) override {
    if (file == name) return std::make_unique<GeneratedFile>(recording);
    return PosixFileSystem::OpenForReading(file);
  }
};

/// The head of a recording of four series.
inline std::string HeaderOf(std::int64_t points) {
  return "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=4\r\nPXXX1=002\r\nPXXX2=003\r\nPXXX3=004\r\nPXXX4=005\r\n"
         "Scan Time=1\r\nUnit=s\r\nNumber of Points=" +
         std::to_string(points) +
         "\r\nTrigger Mode=Manual\r\nEvent=\r\nPXXX=\r\nContent=\r\nStart Date=01/02/2026\r\nStart Time=00:00:01\r\n"
         "End Date=01/02/2026\r\nEnd Time=00:00:00\r\n\r\n[TIME/CONTENT]\r\n";
}

/// Most memory of the process so far.
inline double PeakMebibytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Where surveys are kept: nowhere, unless a benchmark is about them.
inline void KeepSurveysIn(const char* folder) {
  setenv("XDG_CACHE_HOME", folder, 1);
}
inline constexpr const char* kNowhere = "/proc/none";

struct NoLinks : DriveLinkFactory {
  std::unique_ptr<DriveLink> Create(const LinkWait& /*wait*/) override { return nullptr; }
};

struct Bench {
  FakePorts fake;
  GeneratedFiles files;
  PosixClock clock;
  Ports ports;
  NoLinks links;
  Component component{ports, fake.forms, links};
  /// @param realClock idle work stops after its time; on the virtual clock it goes on
  explicit Bench(bool realClock = false)
      : ports{fake.settings,  files,         realClock ? static_cast<Clock&>(clock) : fake.clock,
              fake.locale,    fake.codePage, fake.dialogs,
              fake.sound,     fake.keyboard, fake.help,
              fake.clipboard, fake.printer,  fake.spreadsheets} {
    component.settings.strLanguage = "English";
    component.settings.strSound = "No";
    component.language = Language::kEnglish;
    component.driveTable.At(1).Type = "KRA-09";
  }
};

}  // namespace chartproject
