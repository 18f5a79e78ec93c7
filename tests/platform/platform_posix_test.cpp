#include "backends/posix/file_system_posix.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <csignal>
#include <functional>
#include <thread>

#include "backends/headless/code_page_1252.h"
#include "backends/posix/locale_posix.h"
#include "backends/posix/posix_path.h"
#include "backends/posix/settings_store_ini.h"
#include "platform/temporary_folder.h"
#include "support/error_of.h"

namespace chartproject {
namespace {

/// Number of the error that an operation throws; its description must name the file. 0 when it throws none.
int ErrorOf(const std::function<void()>& operation, const std::string& name) {
  const std::string error = ErrorTextOf(operation);
  EXPECT_TRUE(error.empty() || error.find(name) != std::string::npos) << error;
  return std::atoi(error.c_str());
}

class FileSystemPosixTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  FileSystemPosix files;
};

TEST(PosixPath, FolderOfAName) {
  EXPECT_EQ(FolderOf(PosixPath("a\\b\\c.cht")), "a/b");
  EXPECT_EQ(FolderOf("name"), ".");
  EXPECT_EQ(FolderOf("/name"), "/");
  EXPECT_EQ(FolderOf("/a//b/"), "/a");
  EXPECT_EQ(FolderOf(""), ".");
}

TEST_F(FileSystemPosixTest, WritesReadsSeeksAndKnowsAFileAgain) {
  const std::string name = folder / "a.cht";
  const auto out = files.Create(folder.Path() + "\\a.cht");
  out->Write("0123456789");
  out->Write(std::string(200'000, 'x'));
  out->Seek(2);
  out->Write("##");
  out->FlushAndClose();
  EXPECT_EQ(FileBytes(name), "01##456789" + std::string(200'000, 'x'));

  const auto in = files.OpenForReading(name);
  const FileIdentity before = in->Identity();
  EXPECT_EQ(before.size, 200'010U);
  in->Seek(3);
  std::array<char, 4> buffer{};
  ASSERT_EQ(in->Read(buffer), 4U);
  EXPECT_EQ(std::string(buffer.data(), 4), "#456");

  files.Append(name, "row\r\n");
  EXPECT_EQ(in->Identity().size, 200'015U);
  EXPECT_EQ(in->Identity().index, before.index);
  files.Append(folder / "new", "first");
  files.Rename(folder / "new", name);
  EXPECT_EQ(FileBytes(name), "first");
  EXPECT_NE(files.OpenForReading(name)->Identity().index, before.index);
}

TEST_F(FileSystemPosixTest, ErrorsHaveThePlatformsNumbers) {
  const std::string missing = folder / "none.cht";
  const std::string lost = folder / "none/at/all.cht";
  PutFile(folder / "plain", "x");
  const auto read = [this](const std::string& name) {
    return ErrorOf([&] { (void)files.OpenForReading(name); }, name);
  };
  EXPECT_EQ(read(missing), 53);
  EXPECT_EQ(read(lost), 76);
  EXPECT_EQ(read(folder / "plain/x"), 76);
  EXPECT_EQ(read(folder.Path()), 75);
  EXPECT_EQ(read("/dev/zero"), 75);
  EXPECT_EQ(read(std::string(5000, 'n')), 75);
  EXPECT_EQ(ErrorOf([&] { (void)files.Create(folder.Path()); }, folder.Path()), 75);
  EXPECT_EQ(ErrorOf([&] { files.Append(lost, "x"); }, lost), 76);
  EXPECT_EQ(ErrorOf([&] { files.Delete(missing); }, missing), 53);
  EXPECT_EQ(ErrorOf([&] { files.Rename(missing, folder / "b"); }, folder / "b"), 53);
  EXPECT_EQ(ErrorOf([&] { files.ChangeFolder(missing); }, missing), 76);
  EXPECT_EQ(ErrorOf([&] { files.MakeFolder(folder / "plain"); }, "plain"), 76);
}

TEST_F(FileSystemPosixTest, FoldersAndFilesAreToldApart) {
  files.MakeFolder(folder.Path() + "\\one\\two");
  EXPECT_TRUE(files.FolderExists(folder / "one/two"));
  EXPECT_FALSE(files.FileExists(folder / "one/two"));
  PutFile(folder / "one/f", "");
  EXPECT_TRUE(files.FileExists(folder.Path() + "\\one\\f"));
  EXPECT_FALSE(files.FileExists(""));
  EXPECT_FALSE(files.FolderExists(""));
}

TEST_F(FileSystemPosixTest, ANameIsLockedForOneUntilItLetsGo) {
  for (int round = 0; round < 2; ++round) {
    const auto lock = files.Lock(folder / "a.cht");
    EXPECT_NE(lock, nullptr);
    EXPECT_EQ(files.Lock(folder / "a.cht"), nullptr);
    EXPECT_NE(files.Lock(folder / "b.cht"), nullptr);
    EXPECT_TRUE(files.FileExists(folder / "a.cht.lock"));
  }
  EXPECT_FALSE(files.FileExists(folder / "a.cht.lock"));
}

TEST_F(FileSystemPosixTest, SpaceIsThatOfTheDiskThatWillHoldTheFile) {
  const DiskSpace here = files.SpaceFor(folder.Path());
  EXPECT_GT(here.total, here.totalFree);
  EXPECT_GE(here.totalFree, here.availableToUser);
  EXPECT_EQ(files.SpaceFor(folder / "not/yet/there.cht").total, here.total);
  EXPECT_EQ(files.SpaceFor("/proc/none").total, 0U);
}

TEST_F(FileSystemPosixTest, AFullDiskLeavesWholeRows) {
  const std::string name = folder / "spool";
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{25, before.rlim_max};
  std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  for (const int error : {0, 0, 61}) EXPECT_EQ(ErrorOf([&] { files.Append(name, "0123456789"); }, name), error);
  const auto out = files.Create(folder / "whole");
  EXPECT_EQ(ErrorOf([&] { out->Write(std::string(26, 'x')), out->FlushAndClose(); }, "whole"), 61);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(FileBytes(name), "01234567890123456789");
}

class SettingsStoreIniTest : public FileSystemPosixTest {
 protected:
  void Write(const std::string& section, const std::vector<StoredSetting>& settings) { store.Write(section, settings); }

  SettingsStoreIni store{files, folder / "made/later"};
  std::string file = folder / "made/later/Kestrel v5.60.ini";
};

TEST_F(SettingsStoreIniTest, EveryTextComesBack) {
  const std::string texts[] = {
      "",       "plain",  "  blanks around  ",   R"(C:\Kestrel\new\)", "a=b=c",     "[section]",
      "# text", "; text", "ação, señal, Ω 日本", "line\r\nend\ttab",   R"(\s\n\\)", "\"",
      "%1;%2",  " ",      "-2147483636"};
  for (const auto& text : texts) {
    Write("MyProject", {{"strName", text}});
    EXPECT_EQ(store.Read("MyProject", "strName"), text);
    SettingsStoreIni other(files, folder / "made/later");
    EXPECT_EQ(other.Read("MyProject", "strName"), text) << "after reading the file anew";
  }
}

TEST_F(SettingsStoreIniTest, WhatIsNotThereIsNothing) {
  EXPECT_FALSE(store.Read("MyConf", "strSound"));
  Write("MyConf", {{"strSound", "No"}});
  EXPECT_FALSE(store.Read("MyConf", "strsound")) << "keys are told apart by case";
  EXPECT_FALSE(store.Read("MyProject", "strSound"));
}

TEST_F(SettingsStoreIniTest, KeysAndCommentsOfOthersStay) {
  files.MakeFolder(folder / "made/later");
  PutFile(file, "# kept\n\n[Host]\ntheirs=1\n\n[MyConf]\nstrSound=Yes\nstrOther=C:\\new\\s\n");
  EXPECT_EQ(store.Read("MyConf", "strOther"), "C:\\new\\s") << "single backslashes, typed by hand";
  Write("MyConf", {{"strSound", "No"}, {"strGrid", "Yes"}});
  EXPECT_EQ(FileBytes(file), "# kept\n\n[Host]\ntheirs=1\n\n[MyConf]\nstrSound=No\nstrOther=C:\\new\\s\nstrGrid=Yes\n");
}

TEST_F(SettingsStoreIniTest, ProgramsThatStoreAtTheSameMomentLoseNothing) {
  const auto storeMany = [this](const std::string& section) {
    FileSystemPosix ownFiles;
    SettingsStoreIni own(ownFiles, folder / "made/later");
    for (int k = 0; k < 40; ++k) own.Write(section, std::vector<StoredSetting>{{std::to_string(k), "kept"}});
  };
  std::thread other([&] { storeMany("Host"); });
  storeMany("MyConf");
  other.join();
  for (int k = 0; k < 40; ++k) {
    for (const char* section : {"Host", "MyConf"}) EXPECT_EQ(store.Read(section, std::to_string(k)), "kept") << k;
  }
}

TEST_F(SettingsStoreIniTest, ChangesOfAnotherProgramAreSeenAndKept) {
  Write("MyConf", {{"strSound", "No"}});
  SettingsStoreIni other(files, folder / "made/later");
  other.Write("MyConf", std::vector<StoredSetting>{{"strSound", "Yes"}, {"strGrid", "Yes"}});
  EXPECT_EQ(store.Read("MyConf", "strSound"), "Yes");
  Write("frmAcquireVar", {{"Left", "120"}});
  EXPECT_EQ(other.Read("MyConf", "strGrid"), "Yes");
  EXPECT_EQ(other.Read("frmAcquireVar", "Left"), "120");
}

TEST_F(SettingsStoreIniTest, WhatIsNotUnderstoodIsReportedOnceAndKept) {
  files.MakeFolder(folder / "made/later");
  const std::tuple<const char*, std::vector<int>, const char*> cases[] = {
      {"\xEF\xBB\xBF[MyConf]\r\n strGrid = Yes\r\n", {}, "[MyConf]\nstrGrid=Yes\nstrSound=No\n"},
      {"not an ini\n", {1}, "# not an ini\n\n[MyConf]\nstrSound=No\n"},
      {"[open\nkey=1\n[MyConf]\n=2\na b=3\nstrGrid=Yes\n\x01\xFF\n",
       {1, 2, 4, 5, 7},
       "# [open\n# key=1\n\n[MyConf]\n# =2\n# a b=3\nstrGrid=Yes\n# \x01\xEF\xBF\xBD\nstrSound=No\n"}};
  for (const auto& [bytes, lines, after] : cases) {
    PutFile(file, bytes);
    std::vector<std::string> reported;
    store.lineSkipped = [&](const std::string& sentence) { reported.push_back(sentence); };
    EXPECT_EQ(store.Read("MyConf", "strGrid").value_or("Yes"), "Yes");
    Write("MyConf", {{"strSound", "No"}});
    ASSERT_EQ(reported.size(), lines.size()) << bytes;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      EXPECT_TRUE(reported[i].starts_with(file + ", line " + std::to_string(lines[i]) + ": ")) << reported[i];
    }
    EXPECT_EQ(FileBytes(file), after);
  }
  PutFile(file, std::string(4'000'001, '\n'));
  EXPECT_NE(ErrorOf([&] { Write("MyConf", {{"strSound", "No"}}); }, file), 0);
  std::filesystem::remove_all(folder / "made");
  PutFile(folder / "made", "a file stands in the way");
  EXPECT_THROW(Write("MyConf", {{"strSound", "No"}}), RunTimeError);
}

TEST(LocalePosix, DatesKeepTheLocalesOrderAndSeparator) {
  const std::pair<const char*, const char*> cases[] = {
      {"%m/%d/%y", "02/01/2026"},   {"%d/%m/%Y", "01/02/2026"}, {"%d.%m.%Y", "01.02.2026"}, {"%Y-%m-%d", "2026-02-01"},
      {"%-d.%-m.%Y", "01.02.2026"}, {"%d-%m-%y", "01-02-2026"}, {"%F", "2026-02-01"},       {"%D", "02/01/2026"},
      {"", "2026-02-01"},           {"%", "2026-02-01"}};
  for (const auto& [pattern, text] : cases) {
    const LocalePosix locale({}, {.date = pattern});
    EXPECT_EQ(locale.DateText({2026, 2, 1, 8, 5, 9, 0}), text) << pattern;
  }
}

TEST(LocalePosix, TimesRunToTwelveOrToTwentyFour) {
  const LocalePosix all({}, {.time = "%H:%M:%S"});
  EXPECT_EQ(all.TimeText({2026, 2, 1, 8, 5, 9, 0}), "08:05:09");
  const LocalePosix half({}, {.time = "%r"});
  EXPECT_EQ(half.TimeText({2026, 2, 1, 0, 5, 9, 0}), "12:05:09 AM");
  EXPECT_EQ(half.TimeText({2026, 2, 1, 13, 5, 9, 0}), "1:05:09 PM");
  const LocalePosix wordless({}, {.time = "%r", .am = "", .pm = ""});
  EXPECT_EQ(wordless.TimeText({2026, 2, 1, 13, 5, 9, 0}), "13:05:09");
}

TEST(LocalePosix, AnUnknownLocaleCountsAsC) {
  setenv("LC_ALL", "xx_YY.UTF-8", 1);
  const LocalePosix locale = LocalePosix::FromEnvironment();
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.Numbers().decimalSeparator, ".");
  EXPECT_EQ(locale.DateText({2026, 1, 31, 0, 0, 0, 0}), "01/31/2026");
  EXPECT_EQ(locale.TimeText({2026, 1, 31, 9, 0, 0, 0}), "09:00:00");
}

TEST(CodePage1252, EveryByteComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(CodePage1252().Encode(CodePage1252().Decode(bytes)), bytes);
}

TEST(CodePage1252, KnownCharacters) {
  EXPECT_EQ(CodePage1252().Decode("\x80 \x8D \x99 \xE7\xE3o"), "€ \u008D ™ ção");
  EXPECT_EQ(CodePage1252().Encode("Tensão – 5 €"), "Tens\xE3o \x96 5 \x80");
}

TEST(CodePage1252, WhatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(CodePage1252().Encode("Ω日😀."), "???.");
  EXPECT_EQ(CodePage1252().Encode("a\xFFz\xE7"), "a?z?") << "no UTF-8";
}

}  // namespace
}  // namespace chartproject
