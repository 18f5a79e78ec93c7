// Exports chart files of 65,513, 1,000,000 and 5,000,000 points to the legacy workbook and prints seconds and peak
// memory, each in a separate process; then the same rows through two other writers of that format.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "backends/headless/absent_devices.h"
#include "backends/headless/code_page_1252.h"
#include "backends/headless/headless_form_host.h"
#include "backends/posix/console_dialogs.h"
#include "backends/posix/files/posix_file_system.h"
#include "backends/posix/keyboard_signals.h"
#include "backends/posix/posix_clock.h"
#include "backends/posix/posix_locale.h"
#include "backends/posix/posix_settings_store.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "chart/output/excel_export.h"
#include "recording/file/chart_file.h"

namespace {

using namespace chartproject;  // NOLINT(google-build-using-namespace): a program of one file

namespace fs = std::filesystem;

class NoLinks : public DriveLinkFactory {
 public:
  std::unique_ptr<DriveLink> Create(const LinkWait& /*wait*/) override { return nullptr; }
};

/// Accepts every question in silence.
class Consent : public Dialogs {
 public:
  std::int16_t ShowMessageBox(const MessageBoxRequest& /*request*/) override { return box_answer::kYes; }
  std::string ShowInputBox(const InputBoxRequest& /*request*/) override { return {}; }
  std::optional<std::string> ShowOpenFile(const OpenFileRequest& /*request*/) override { return std::nullopt; }
};

void WriteChart(const fs::path& name, int points) {
  std::ofstream file(name, std::ios::binary);
  file << "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=4\r\n\r\n[TIME/CONTENT]\r\n";
  for (int i = 0; i < points; ++i) {
    char row[96];
    std::snprintf(row, sizeof row, "%02d:%02d:%02d#%d.%02d#-%d.%03d#%d#%d.%d##\r\n", i / 3600 % 24, i / 60 % 60, i % 60,
                  i % 1800, i % 100, i % 7, i % 1000, i % 4096, i % 60, i % 10);
    file << row;
  }
}

ExportOutcome Export(const fs::path& chart, const fs::path& workbook) {
  PosixFileSystem files;
  PosixClock clock;
  PosixSettingsStore settings(files, chart.parent_path() / "profile");
  PosixLocale locale = PosixLocale::FromEnvironment();
  CodePage1252 codePage;
  Consent dialogs;
  SilentSound sound;
  KeyboardSignals keyboard;
  NoHelp help;
  ProcessClipboard clipboard;
  NoPrinter printer;
  EmbeddedSpreadsheets spreadsheets(locale);
  HeadlessFormHost forms(clock, SleepUntil);
  Ports ports{settings, files,    clock, locale,    codePage, dialogs,
              sound,    keyboard, help,  clipboard, printer,  spreadsheets};
  NoLinks links;
  Component component(ports, forms, links);
  component.strChartFileName = chart;
  ReadChartHeader(component);
  return ExportToSpreadsheet(component, {chart, workbook, component.chartHeader});
}

/// Runs one export in a child and prints what it took.
bool Measure(const fs::path& folder, int points) {
  const fs::path chart = folder / (std::to_string(points) + ".cht");
  WriteChart(chart, points);
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) _exit(Export(chart, chart.string() + ".xls") == ExportOutcome::kSaved ? 0 : 1);
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) return false;
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  std::printf("%-28s %9d points %8.2f s %7ld MiB peak %8.1f MB file\n", "chartproject", points, seconds.count(),
              usage.ru_maxrss / 1024, static_cast<double>(fs::file_size(chart.string() + ".xls")) / 1e6);
  std::fflush(stdout);
  return true;
}

}  // namespace

int main() {
  const fs::path folder = fs::path(CHARTPROJECT_BINARY_DIR) / "bench-workbooks";
  fs::create_directories(folder);
  bool measured = true;
  for (const int points : {65'513, 1'000'000, 5'000'000}) measured = Measure(folder, points) && measured;
  for (const char* points : {"65513", "1000000"}) {
    const std::string command = "/usr/bin/python3 " CHARTPROJECT_SOURCE_DIR "/bench/workbook_peers.py '" +
                                (folder / (std::string(points) + ".cht")).string() +
                                "' '" CHARTPROJECT_BINARY_DIR "/headless/chartproject'";
    measured = std::system(command.c_str()) == 0 && measured;
  }
  fs::remove_all(folder);
  return measured ? 0 : 1;
}
