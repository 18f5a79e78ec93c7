// What Linux makes of names, dates, boxes and broken files, held against texts that were read.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <sstream>

#include "backends/headless/absent_devices.h"
#include "backends/headless/code_page_1252.h"
#include "backends/headless/virtual_clock.h"
#include "backends/posix/console_dialogs.h"
#include "backends/posix/files/posix_file_system.h"
#include "backends/posix/files/posix_path.h"
#include "backends/posix/posix_locale.h"
#include "backends/posix/settings_text.h"
#include "common/values/text.h"
#include "platform/temporary_folder.h"
#include "support/error_of.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

TEST(PosixSession, LocalesBoxesSettingsAndCharacters) {
  Transcript transcript("posix_habits");
  transcript.Step("dates");
  std::istringstream patterns(
      "%m/%d/%y|%d/%m/%Y|%d.%m.%Y|%Y-%m-%d|%-d.%-m.%Y|%_d. %b %EY|%F|%D||%|%d%m%Y|%d/%m|%e/%Om/%y|x%d");
  for (std::string pattern; std::getline(patterns, pattern, '|');)
    transcript.Say(pattern, ": ", PosixLocale({}, {.date = pattern}).DateText({2026, 2, 1, 8, 5, 9, 0}));
  transcript.Step("times");
  for (const auto& [time, am, pm] : {std::tuple{"%H:%M:%S", "AM", "PM"},
                                     {"%r", "AM", "PM"},
                                     {"%I %p", "am", "pm"},
                                     {"%r", "", "PM"},
                                     {"%r", "AM", ""}}) {
    std::string line = time + std::string(":");
    for (const int hour : {0, 1, 11, 12, 13, 23})
      line += " " + PosixLocale({}, {.time = time, .am = am, .pm = pm}).TimeText({2026, 2, 1, hour, 5, 9, 0});
    transcript.Add(line);
  }
  for (const char* name : {"xx_YY.UTF-8", "C"}) {
    setenv("LC_ALL", name, 1);
    const PosixLocale locale = PosixLocale::FromEnvironment();
    unsetenv("LC_ALL");
    transcript.Say(name, (": " + locale.Numbers().decimalSeparator), locale.Numbers().groupSeparator, " ",
                   locale.DateText({2026, 1, 31, 0, 0, 0, 0}), " ", locale.TimeText({2026, 1, 31, 21, 0, 0, 0}));
  }
  transcript.Step("boxes");
  for (const bool yes : {true, false}) {
    std::ostringstream out;
    ConsoleDialogs dialogs(out, yes, "error");
    for (const std::int32_t style : {0, 4, 4 + 32, 64, 16 + 4, 5})
      out << dialogs.ShowMessageBox({"one\r\ntwo", style, style == 64 ? "error" : "title", "", 0}) << " ";
    out << "\"" << dialogs.ShowInputBox({}) << "\" " << dialogs.ShowOpenFile({}).has_value() << " " << dialogs.Count()
        << " boxes, " << dialogs.ErrorCount() << " errors";
    transcript.Add(out.str());
  }
  transcript.Step("settings");
  const auto skipped = [&](std::int64_t line, std::string_view text) { transcript.Say("skipped ", line, ": ", text); };
  transcript.Add(
      ReadableSettings("\xEF\xBB\xBFkey=0\n# c\n#\xFF\n\n[A]\r\n \tkey = 1\n[B] x\n[B] \t\n[]\n[a[b]\n[C\n=2\n =3\na "
                       "b=4\na=b c\n[d=5\na\tb=6\nk\xFF=7\nk=\xFF\nplain\nlast=1",
                       skipped));
  for (const char* path : {"C:\\new", "C:\\\\new", "C:\\\\new\\x", "c:\\", "C:/new", "\\\\host", "\\\\\\\\host",
                           "\\\\\\\\host\\x", "1:\\x", "C\\:", "", "C:\\\\a\\\\"})
    transcript.Say(path, std::string(IsTypedWindowsPath(path) ? " is typed" : " is not"));
  transcript.Step("characters: every byte, and back");
  for (int row = 0x80; row < 0x100; row += 16) {
    std::string bytes;
    for (int byte = row; byte < row + 16; ++byte) bytes += static_cast<char>(byte);
    transcript.Say(CodePage1252().Decode(bytes),
                   (CodePage1252().Encode(CodePage1252().Decode(bytes)) == bytes ? "" : " is lost"));
  }
  for (const char* text : {"a\x7F", "\u03A9\u65E5\U0001F600.", "a\xFFz\xE7", "\xC3", "\xC3z", "\xE2\x82z",
                           "\xF0\x9F\x98", "\xBFz", "\xF8\x80\x80\x80\x80", "\u2013\u0178"})
    transcript.Add(VisibleText(CodePage1252().Decode(CodePage1252().Encode(text))));
  transcript.Step("the virtual clock");
  VirtualClock clock{DateTime{2028, 2, 28, 23, 59, 59, 999}};
  for (const int milliseconds : {0, 1, 86'399'999, 1, 3'723'004}) {
    clock.Advance(std::chrono::milliseconds(milliseconds));
    const DateTime now = clock.LocalNow();
    std::ostringstream line;
    for (const int part : {now.year, now.month, now.day, now.hour, now.minute, now.second, now.millisecond})
      line << part << " ";
    transcript.Add(line.str());
  }
}

TEST(PosixSession, WhatFilesAndFoldersAreRefusedFor) {
  Transcript transcript("posix_refusals");
  const TemporaryFolder folder;
  PosixFileSystem files;
  PutFile(folder / "plain", "x");
  std::filesystem::create_directory(folder / "folder");
  std::filesystem::create_symlink("plain", folder / "link");
  std::filesystem::create_symlink("loop", folder / "loop");
  std::filesystem::create_symlink("/dev/zero", folder / "zero");
  std::filesystem::create_symlink("pipe", folder / "to pipe");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const auto tell = [&](const std::string& what, const std::function<void()>& action) {
    std::string text = ErrorTextOf(action);
    for (std::size_t at = 0; (at = text.find(folder.Path())) != std::string::npos;)
      text.replace(at, folder.Path().size(), "FOLDER");
    transcript.Say(what, ": ", text);
  };
  for (const std::string name :
       {"plain", "folder", "link", "loop", "zero", "to pipe", "pipe", "none", "none/below", "plain/below", ""}) {
    const std::string path = folder / name;
    transcript.Step("\"" + name + "\"" + (files.FileExists(path) ? " is a file" : "") +
                    (files.FolderExists(path) ? " is a folder" : ""));
    tell("read", [&] { (void)files.OpenForReading(path); });
    tell("replace", [&] { files.CheckReplaceable(path); });
    tell("own", [&] { files.CheckOwned(path); });
    tell("follow", [&] { transcript.Add(files.ResolveLink(path).substr(folder.Path().size())); });
    tell("append", [&] { files.Append(name.empty() ? path : path + "", ""); });
    tell("a file beside it", [&] { (void)files.MakeSideFile({.target = path, .ending = ".new"}); });
    tell("one file beside it", [&] { (void)files.MakeSideFile({.target = path, .ending = "", .names = 1}); });
    tell("a lock", [&] { transcript.Add(files.Lock(path).lock == nullptr ? "held by another" : "locked"); });
    tell("list", [&] { transcript.Say(files.FilesIn(path).size(), " files"); });
    tell("make", [&] {
      if (name.find("none") == std::string::npos) files.MakeFolder(path);
    });
    tell("go", [&] {
      if (name != "folder" && !name.empty()) files.ChangeFolder(path);
    });
    tell("space", [&] { transcript.Add(files.SpaceFor(path).total > 0 ? "some" : "none"); });
  }
  transcript.Say("a long name: ", ErrorOf([&] { (void)files.OpenForReading(std::string(5000, 'n')); }));
  transcript.Step("names");
  for (const char* name : {"a\\b\\c.cht", "name", "/name", "/a//b/", "", "/", "//", "a/", "/a/b", "a//b"})
    transcript.Say(name, ": ", PosixPath(name), ", ", FolderOf(PosixPath(name)));
  transcript.Step("no printer");
  NoPrinter none;
  tell("document", [&] { (void)none.StartDocument("t"); });
  tell("page", [&] { (void)none.Page(); });
  tell("end", [&] { none.EndDocument(); });
}

}  // namespace
}  // namespace chartproject
