#include "platform/posix/settings_store_ini.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "platform/posix/file_system_posix.h"
#include "platform/run_time_error.h"
#include "platform/temporary_folder.h"

namespace chartproject {
namespace {

using testing::HasSubstr;

class SettingsStoreIniTest : public testing::Test {
 protected:
  void Write(const std::string& section, const std::vector<StoredSetting>& settings) { store.Write(section, settings); }

  TemporaryFolder folder;
  FileSystemPosix files;
  SettingsStoreIni store{files, folder / "made/later"};
  std::string file = folder / "made/later/Kestrel v5.60.ini";
};

TEST_F(SettingsStoreIniTest, EveryTextComesBack) {
  const std::string texts[] = {
      "",       "plain",  "  blanks around  ",   "C:\\Kestrel\\new\\", "a=b=c",      "[section]",
      "# text", "; text", "ação, señal, Ω 日本", "line\r\nend\ttab",   "\\s\\n\\\\", "\"",
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
  PutFile(file, "# kept\n\n[Host]\ntheirs=1\n\n[MyConf]\nstrSound=Yes\nstrOther=C:\\Media\n");
  EXPECT_EQ(store.Read("MyConf", "strOther"), "C:\\Media") << "a lone backslash, typed by hand";
  Write("MyConf", {{"strSound", "No"}, {"strGrid", "Yes"}});
  EXPECT_EQ(FileBytes(file), "# kept\n\n[Host]\ntheirs=1\n\n[MyConf]\nstrSound=No\nstrOther=C:\\Media\nstrGrid=Yes\n");
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

TEST_F(SettingsStoreIniTest, RubbishIsAnErrorThatNamesTheFileAndIsNotOverwritten) {
  files.MakeFolder(folder / "made/later");
  for (const std::string& rubbish : std::vector<std::string>{"not an ini\n", "[open\nkey=1\n", "\x01\xFF\n"}) {
    PutFile(file, rubbish);
    EXPECT_THAT(
        [&] {
          Write("MyConf", {{"strSound", "No"}});
        },
        testing::Throws<RunTimeError>(testing::Property(&RunTimeError::Description, HasSubstr(file))));
    EXPECT_EQ(FileBytes(file), rubbish);
  }
  std::filesystem::remove_all(folder / "made");
  PutFile(folder / "made", "a file stands in the way");
  EXPECT_THROW(Write("MyConf", {{"strSound", "No"}}), RunTimeError);
}

}  // namespace
}  // namespace chartproject
