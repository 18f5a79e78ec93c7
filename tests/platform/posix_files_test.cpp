#include "backends/posix/files/posix_file_system.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>

#include "platform/temporary_folder.h"
#include "support/named_error.h"

namespace chartproject {
namespace {

class PosixFileSystemTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  PosixFileSystem files;
};

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
  EXPECT_EQ(files.ResolveLink(folder / "two"), folder.Path() + "/real/a.cht");
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

}  // namespace
}  // namespace chartproject
