#include "backends/posix/files/posix_file_system.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "backends/headless/code_page_1252.h"
#include "backends/posix/files/posix_path.h"
#include "backends/posix/posix_locale.h"
#include "backends/posix/posix_settings_store.h"
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

class PosixFileSystemTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  PosixFileSystem files;
};

TEST(PosixPath, FolderOfAName) {
  EXPECT_EQ(FolderOf(PosixPath("a\\b\\c.cht")), "a/b");
  EXPECT_EQ(FolderOf("name"), ".");
  EXPECT_EQ(FolderOf("/name"), "/");
  EXPECT_EQ(FolderOf("/a//b/"), "/a");
  EXPECT_EQ(FolderOf(""), ".");
}

TEST_F(PosixFileSystemTest, WritesReadsSeeksAndKnowsAFileAgain) {
  const std::string name = folder / "a.cht";
  auto side = files.MakeSideFile({.target = folder.Path() + "\\a.cht", .ending = ".new"});
  const auto out = side->OpenForWriting();
  out->Write("0123456789");
  out->Write(std::string(200'000, 'x'));
  out->Seek(2);
  out->Write("##");
  out->FlushAndClose();
  side->ReplaceTarget();
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
  side = files.MakeSideFile({.target = name, .ending = ".new"});
  side->AppendAndMeasure("first");
  side->ReplaceTarget();
  EXPECT_EQ(FileBytes(name), "first");
  EXPECT_NE(files.OpenForReading(name)->Identity().index, before.index);
}

TEST_F(PosixFileSystemTest, ErrorsHaveThePlatformsNumbers) {
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
  EXPECT_EQ(read(std::string(5000, 'n')), 75);
  EXPECT_EQ(ErrorOf([&] { files.CheckReplaceable(folder.Path()); }, folder.Path()), 75);
  EXPECT_EQ(ErrorOf([&] { (void)files.MakeSideFile({.target = lost, .ending = ".new"}); }, lost), 76);
  EXPECT_EQ(ErrorOf([&] { files.Append(lost, "x"); }, lost), 76);
  EXPECT_EQ(ErrorOf([&] { files.Delete(missing); }, missing), 53);
  EXPECT_EQ(ErrorOf([&] { files.ChangeFolder(missing); }, missing), 76);
  EXPECT_EQ(ErrorOf([&] { files.MakeFolder(folder / "plain"); }, "plain"), 76);
}

TEST_F(PosixFileSystemTest, FoldersAndFilesAreToldApart) {
  files.MakeFolder(folder.Path() + "\\one\\two");
  EXPECT_TRUE(files.FolderExists(folder / "one/two"));
  EXPECT_FALSE(files.FileExists(folder / "one/two"));
  PutFile(folder / "one/f", "");
  EXPECT_TRUE(files.FileExists(folder.Path() + "\\one\\f"));
  EXPECT_FALSE(files.FileExists(""));
  EXPECT_FALSE(files.FolderExists(""));
}

TEST_F(PosixFileSystemTest, ANameIsLockedForOneUntilItLetsGo) {
  const std::string name = folder / "a.cht";
  // A user's own file, also an empty one, is left alone; a marker that its program left holds nothing.
  const std::tuple<const char*, const char*, bool> cases[] = {{nullptr, ".lock", false},
                                                              {"the user's", ".lock1", true},
                                                              {"", ".lock1", true},
                                                              {"chart file lock\n", ".lock", false}};
  for (const auto& [before, ending, stays] : cases) {
    if (before != nullptr) PutFile(name + ".lock", before);
    {
      const LockAttempt mine = files.Lock(name);
      EXPECT_NE(mine.lock, nullptr);
      EXPECT_TRUE(files.FileExists(name + ending));
      const LockAttempt second = files.Lock(name);
      EXPECT_EQ(second.lock, nullptr);
      EXPECT_EQ(second.heldBy, name + ending);
      EXPECT_NE(files.Lock(folder / "b.cht").lock, nullptr);
    }
    EXPECT_EQ(files.FileExists(name + ".lock"), stays);
    EXPECT_FALSE(files.FileExists(name + ".lock1"));
    EXPECT_EQ(FileBytes(name + ".lock"), stays ? before : "");
    std::filesystem::remove(name + ".lock");
  }
}

TEST_F(PosixFileSystemTest, OnlyRegularFilesAreOpenedAndNothingIsWaitedFor) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  (folder / "socket").copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
  const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(socketNumber, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  std::filesystem::create_symlink("pipe", folder / "link");
  for (const std::string& name : {folder / "pipe", folder / "socket", folder / "link", std::string("/dev/zero")}) {
    EXPECT_THROW((void)files.OpenForReading(name), NotARegularFile) << name;
    EXPECT_THROW((void)files.ResolveLink(name), NotARegularFile) << name;
    EXPECT_EQ(ErrorOf([&] { files.Append(name, "x"); }, name), 75);
  }
  for (const char* name : {"pipe", "socket"}) EXPECT_THROW(files.CheckReplaceable(folder / name), NotARegularFile);
  close(socketNumber);
}

TEST_F(PosixFileSystemTest, TheLogIsAppendedToThroughNoLink) {
  PutFile(folder / "private", "key");
  std::filesystem::create_symlink("private", folder / "soft");
  std::filesystem::create_symlink("nowhere", folder / "dangling");
  std::filesystem::create_hard_link(folder / "private", folder / "hard");
  for (const char* name : {"soft", "dangling", "hard"})
    EXPECT_EQ(ErrorOf([&] { files.Append(folder / name, "x"); }, name), 75);
  EXPECT_EQ(FileBytes(folder / "private"), "key");
  EXPECT_FALSE(files.FileExists(folder / "nowhere"));
}

TEST_F(PosixFileSystemTest, SideFilesAreMadeAnewWithTheRightsOfTheirTarget) {
  const std::string name = folder / "a.cht";
  PutFile(folder / "private", "key");
  std::filesystem::create_symlink("private", name + ".new");
  PutFile(name + ".new1", "the user's");
  for (const unsigned mode : {0600U, 0640U, 0644U}) {
    PutFile(name, "old");
    chmod(name.c_str(), mode);
    auto side = files.MakeSideFile({.target = name, .ending = ".new"});
    EXPECT_EQ(side->Name(), name + ".new2");
    EXPECT_EQ(files.RightsOf(side->Name()).mode, mode);
    side->AppendAndMeasure("fresh");
    side->ReplaceTarget();
    side.reset();
    EXPECT_EQ(FileBytes(name), "fresh");
    EXPECT_EQ(files.RightsOf(name).mode, mode);
  }
  EXPECT_EQ(FileBytes(folder / "private"), "key");
  EXPECT_EQ(FileBytes(name + ".new1"), "the user's");
  EXPECT_FALSE(files.FileExists(name + ".new2"));
}

TEST_F(PosixFileSystemTest, ASideFileThatWasReplacedIsNeitherReadNorWrittenNorDeleted) {
  const std::string name = folder / "a.cht.tcf0";
  PutFile(folder / "private", "key");
  const std::function<void()> replacements[] = {[&] { std::filesystem::create_symlink("private", name); },
                                                [&] { std::filesystem::create_hard_link(folder / "private", name); },
                                                [&] { PutFile(name, "key"); }, [&] { mkfifo(name.c_str(), 0600); }};
  for (const auto& replace : replacements) {
    auto side = files.MakeSideFile({.target = folder / "a.cht", .ending = ".tcf0", .names = 1});
    side->AppendAndMeasure("row\r\n");
    std::filesystem::remove(name);
    replace();
    EXPECT_EQ(ErrorOf([&] { side->AppendAndMeasure("more"); }, name), 75);
    EXPECT_EQ(ErrorOf([&] { side->ReplaceTarget(); }, name), 75);
    EXPECT_FALSE(side->HasItsName());
    std::array<char, 9> bytes{};
    EXPECT_EQ(side->OpenForReading()->Read(bytes), 5U) << "its own rows are there all the same";
    EXPECT_STREQ(bytes.data(), "row\r\n");
    side.reset();
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(name)));
    EXPECT_EQ(FileBytes(folder / "private"), "key");
    std::filesystem::remove(name);
  }
}

TEST_F(PosixFileSystemTest, ASideFileThatWasRemovedOrCutIsReportedAsLost) {
  const std::string name = folder / "a.cht.tcf0";
  const std::function<void()> losses[] = {[&] { std::filesystem::remove(name); },
                                          [&] { std::filesystem::resize_file(name, 2); },
                                          [&] { std::ofstream(name, std::ios::app) << "a stranger's"; }};
  for (const auto& lose : losses) {
    auto side = files.MakeSideFile({.target = folder / "a.cht", .ending = ".tcf0", .names = 1});
    side->AppendAndMeasure("row\r\n");
    lose();
    EXPECT_THROW(side->AppendAndMeasure("more"), SideFileLost);
  }
}

TEST_F(PosixFileSystemTest, TakeTargetNeverReplacesAndFilesInListsFilesOnly) {
  auto side = files.MakeSideFile({.target = folder / "a.cht", .ending = ".new"});
  side->AppendAndMeasure("fresh");
  PutFile(folder / "a.cht", "the user's own");
  std::filesystem::create_directory(folder / "b");
  EXPECT_FALSE(side->TakeTarget());
  EXPECT_EQ(FileBytes(folder / "a.cht"), "the user's own");
  EXPECT_EQ(files.FilesIn(folder.Path()), (std::vector<std::string>{"a.cht", "a.cht.new"}));
  std::filesystem::remove(folder / "a.cht");
  EXPECT_TRUE(side->TakeTarget());
  side.reset();
  EXPECT_EQ(FileBytes(folder / "a.cht"), "fresh");
  EXPECT_EQ(ErrorOf([&] { (void)files.FilesIn(folder / "none"); }, "none"), 76);
}

TEST_F(PosixFileSystemTest, LinksAreResolvedUnlessAStrangerMadeThem) {
  std::filesystem::create_directory(folder / "real");
  std::filesystem::create_symlink("real/a.cht", folder / "one");
  std::filesystem::create_symlink(folder / "one", folder / "two");
  std::filesystem::create_symlink("loop", folder / "loop");
  EXPECT_EQ(files.ResolveLink(folder / "two"), folder.Path() + "/real/a.cht");
  EXPECT_EQ(files.ResolveLink(folder / "plain"), folder / "plain");
  EXPECT_EQ(ErrorOf([&] { (void)files.ResolveLink(folder / "loop"); }, "loop"), 75);
  EXPECT_EQ(ErrorOf([&] { files.CheckOwned(folder / "one"); }, "one"), 70);
  EXPECT_EQ(ErrorOf([&] { files.CheckOwned(folder / "none"), files.CheckOwned(folder / "real"); }, ""), 0);
  if (geteuid() != 0) return;  // only the superuser can make the files of two others
  constexpr uid_t kStranger = 65533;
  constexpr uid_t kUser = 65534;
  ASSERT_EQ(lchown((folder / "one").c_str(), kStranger, kStranger), 0);
  chmod(folder.Path().c_str(), 01777);
  PutFile(folder / "foreign", "");
  ASSERT_EQ(chown((folder / "foreign").c_str(), kStranger, kStranger), 0);
  ASSERT_EQ(seteuid(kUser), 0);
  EXPECT_EQ(ErrorOf([&] { (void)files.ResolveLink(folder / "one"); }, "one"), 70);
  EXPECT_EQ(ErrorOf([&] { files.CheckReplaceable(folder / "foreign"); }, "foreign"), 70) << "a sticky folder";
  EXPECT_EQ(ErrorOf([&] { files.CheckOwned(folder / "real"); }, "real"), 70);
  ASSERT_EQ(seteuid(0), 0);
}

TEST_F(PosixFileSystemTest, SpaceIsThatOfTheDiskThatWillHoldTheFile) {
  const DiskSpace here = files.SpaceFor(folder.Path());
  EXPECT_GT(here.total, here.totalFree);
  EXPECT_GE(here.totalFree, here.availableToUser);
  EXPECT_EQ(files.SpaceFor(folder / "not/yet/there.cht").total, here.total);
  EXPECT_EQ(files.SpaceFor("/proc/none").total, 0U);
}

TEST_F(PosixFileSystemTest, AFullDiskLeavesWholeRows) {
  const std::string name = folder / "spool";
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{25, before.rlim_max};
  std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  const auto spool = files.MakeSideFile({.target = name, .ending = "", .names = 1});
  for (const int error : {0, 0, 61}) EXPECT_EQ(ErrorOf([&] { spool->AppendAndMeasure("0123456789"); }, name), error);
  const auto side = files.MakeSideFile({.target = folder / "whole", .ending = ".new"});
  const auto out = side->OpenForWriting();
  EXPECT_EQ(ErrorOf([&] { out->Write(std::string(26, 'x')), out->FlushAndClose(); }, "whole"), 61);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(FileBytes(name), "01234567890123456789");
}

class PosixSettingsStoreTest : public PosixFileSystemTest {
 protected:
  void Write(const std::string& section, const std::vector<StoredSetting>& settings) { store.Write(section, settings); }

  PosixSettingsStore store{files, folder / "made/later"};
  std::string file = folder / "made/later/Kestrel v5.60.ini";
};

TEST_F(PosixSettingsStoreTest, EveryTextComesBack) {
  const std::string texts[] = {
      "",       "plain",  "  blanks around  ",   R"(C:\Kestrel\new\)", "a=b=c",     "[section]",
      "# text", "; text", "ação, señal, Ω 日本", "line\r\nend\ttab",   R"(\s\n\\)", "\"",
      "%1;%2",  " ",      "-2147483636"};
  for (const auto& text : texts) {
    Write("MyProject", {{"strName", text}});
    EXPECT_EQ(store.Read("MyProject", "strName"), text);
    PosixSettingsStore other(files, folder / "made/later");
    EXPECT_EQ(other.Read("MyProject", "strName"), text) << "after reading the file anew";
  }
}

TEST_F(PosixSettingsStoreTest, WhatIsNotThereIsNothing) {
  EXPECT_FALSE(store.Read("MyConf", "strSound"));
  Write("MyConf", {{"strSound", "No"}});
  EXPECT_FALSE(store.Read("MyConf", "strsound")) << "keys are told apart by case";
  EXPECT_FALSE(store.Read("MyProject", "strSound"));
}

TEST_F(PosixSettingsStoreTest, KeysAndCommentsOfOthersStay) {
  files.MakeFolder(folder / "made/later");
  PutFile(file, "# kept\n\n[Host]\ntheirs=1\n\n[MyConf]\nstrSound=Yes\nstrOther=C:\\new\\s\n");
  EXPECT_EQ(store.Read("MyConf", "strOther"), "C:\\new\\s") << "single backslashes, typed by hand";
  Write("MyConf", {{"strSound", "No"}, {"strGrid", "Yes"}});
  EXPECT_EQ(FileBytes(file), "# kept\n\n[Host]\ntheirs=1\n\n[MyConf]\nstrSound=No\nstrOther=C:\\new\\s\nstrGrid=Yes\n");
}

TEST_F(PosixSettingsStoreTest, ProgramsThatStoreAtTheSameMomentLoseNothing) {
  const auto storeMany = [this](const std::string& section) {
    PosixFileSystem ownFiles;
    PosixSettingsStore own(ownFiles, folder / "made/later");
    for (int k = 0; k < 40; ++k) own.Write(section, std::vector<StoredSetting>{{std::to_string(k), "kept"}});
  };
  std::thread other([&] { storeMany("Host"); });
  storeMany("MyConf");
  other.join();
  for (int k = 0; k < 40; ++k) {
    for (const char* section : {"Host", "MyConf"}) EXPECT_EQ(store.Read(section, std::to_string(k)), "kept") << k;
  }
}

TEST_F(PosixSettingsStoreTest, ChangesOfAnotherProgramAreSeenAndKept) {
  Write("MyConf", {{"strSound", "No"}});
  PosixSettingsStore other(files, folder / "made/later");
  other.Write("MyConf", std::vector<StoredSetting>{{"strSound", "Yes"}, {"strGrid", "Yes"}});
  EXPECT_EQ(store.Read("MyConf", "strSound"), "Yes");
  Write("frmAcquireVar", {{"Left", "120"}});
  EXPECT_EQ(other.Read("MyConf", "strGrid"), "Yes");
  EXPECT_EQ(other.Read("frmAcquireVar", "Left"), "120");
}

TEST_F(PosixSettingsStoreTest, WhatIsLockedByOthersIsStoredWithTheNextWrite) {
  Write("MyConf", {{"strSound", "No"}});
  std::filesystem::rename(file, folder / "elsewhere");
  std::filesystem::create_symlink(folder / "elsewhere", file);
  chmod((folder / "elsewhere").c_str(), 0600);
  const std::string lockFolder = folder / "made/later/Kestrel v5.60.lock";
  EXPECT_EQ(std::filesystem::status(lockFolder).permissions(), std::filesystem::perms::owner_all);
  const int anybody = open((folder / "made/later").c_str(), O_RDONLY);  // a stranger can lock what he can read
  ASSERT_EQ(flock(anybody, LOCK_EX), 0);
  Write("MyConf", {{"strSound", "Yes"}});
  const int held = open((lockFolder + "/lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  for (const char* key : {"strGrid", "strLine"}) {
    EXPECT_EQ(ErrorOf([&] { Write("MyConf", {{key, "No"}}); }, "another program holds the lock"), 70);
    EXPECT_EQ(store.Read("MyConf", key), "No");
  }
  close(held);
  Write("MyConf", {{"strMarker", "No"}});
  close(anybody);
  PosixSettingsStore other(files, folder / "made/later");
  for (const char* key : {"strGrid", "strLine", "strMarker"}) EXPECT_EQ(other.Read("MyConf", key), "No");
  EXPECT_EQ(other.Read("MyConf", "strSound"), "Yes");
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(files.RightsOf(folder / "elsewhere").mode, 0600U);
}

TEST_F(PosixSettingsStoreTest, WhatIsNotUnderstoodIsReportedOnceAndKept) {
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

TEST(PosixLocale, DatesKeepTheLocalesOrderAndSeparator) {
  const std::pair<const char*, const char*> cases[] = {
      {"%m/%d/%y", "02/01/2026"},   {"%d/%m/%Y", "01/02/2026"}, {"%d.%m.%Y", "01.02.2026"}, {"%Y-%m-%d", "2026-02-01"},
      {"%-d.%-m.%Y", "01.02.2026"}, {"%d-%m-%y", "01-02-2026"}, {"%F", "2026-02-01"},       {"%D", "02/01/2026"},
      {"", "2026-02-01"},           {"%", "2026-02-01"}};
  for (const auto& [pattern, text] : cases) {
    const PosixLocale locale({}, {.date = pattern});
    EXPECT_EQ(locale.DateText({2026, 2, 1, 8, 5, 9, 0}), text) << pattern;
  }
}

TEST(PosixLocale, TimesRunToTwelveOrToTwentyFour) {
  const PosixLocale all({}, {.time = "%H:%M:%S"});
  EXPECT_EQ(all.TimeText({2026, 2, 1, 8, 5, 9, 0}), "08:05:09");
  const PosixLocale half({}, {.time = "%r"});
  EXPECT_EQ(half.TimeText({2026, 2, 1, 0, 5, 9, 0}), "12:05:09 AM");
  EXPECT_EQ(half.TimeText({2026, 2, 1, 13, 5, 9, 0}), "1:05:09 PM");
  const PosixLocale wordless({}, {.time = "%r", .am = "", .pm = ""});
  EXPECT_EQ(wordless.TimeText({2026, 2, 1, 13, 5, 9, 0}), "13:05:09");
}

TEST(PosixLocale, AnUnknownLocaleCountsAsC) {
  setenv("LC_ALL", "xx_YY.UTF-8", 1);
  const PosixLocale locale = PosixLocale::FromEnvironment();
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
