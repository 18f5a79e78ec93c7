// What Linux keeps for the program: the settings' file.
#include "backends/posix/posix_settings_store.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "backends/posix/files/posix_file_system.h"
#include "platform/temporary_folder.h"
#include "support/named_error.h"

namespace chartproject {
namespace {

class PosixSettingsStoreTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  PosixFileSystem files;
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

}  // namespace
}  // namespace chartproject
