#include "platform/posix/file_system_posix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>

#include "platform/posix/posix_path.h"
#include "platform/run_time_error.h"
#include "platform/temporary_folder.h"

namespace chartproject {
namespace {

using testing::HasSubstr;

/// Number of the error that an operation throws; its description must name the file. 0 when it throws none.
int ErrorOf(const std::function<void()>& operation, const std::string& name) {
  try {
    operation();
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.Description(), HasSubstr(name));
    return error.Number();
  }
  return 0;
}

/// Runs a check in a process of its own, which may give up rights or room; 0 when it held.
int InChild(const std::function<int()>& check) {
  const pid_t child = fork();
  if (child == 0) _exit(check());
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(missing); }, missing), 53);
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(lost); }, lost), 76);
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(folder / "plain/x"); }, "plain/x"), 76);
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(folder.Path()); }, folder.Path()), 75);
  EXPECT_EQ(ErrorOf([&] { (void)files.Create(folder.Path()); }, folder.Path()), 75);
  EXPECT_EQ(ErrorOf([&] { files.Append(lost, "x"); }, lost), 76);
  EXPECT_EQ(ErrorOf([&] { files.Delete(missing); }, missing), 53);
  EXPECT_EQ(ErrorOf([&] { files.Rename(missing, folder / "b"); }, folder / "b"), 53);
  EXPECT_EQ(ErrorOf([&] { files.ChangeFolder(missing); }, missing), 76);
  EXPECT_EQ(ErrorOf([&] { files.MakeFolder(folder / "plain"); }, "plain"), 76);
  EXPECT_EQ(ErrorOf([&] { files.MakeFolder(""); }, ""), 75);
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(std::string(5000, 'n')); }, "nnn"), 75);
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

TEST_F(FileSystemPosixTest, SpaceIsThatOfTheDiskThatWillHoldTheFile) {
  const DiskSpace here = files.SpaceFor(folder.Path());
  EXPECT_GT(here.total, here.totalFree);
  EXPECT_GE(here.totalFree, here.availableToUser);
  EXPECT_EQ(files.SpaceFor(folder / "not/yet/there.cht").total, here.total);
  EXPECT_EQ(files.SpaceFor("/proc/none").total, 0U);
}

TEST_F(FileSystemPosixTest, AFullDiskLeavesWholeRows) {
  const std::string name = folder / "spool";
  const int code = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{25, 25};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    files.Append(name, "0123456789");
    files.Append(name, "0123456789");
    if (ErrorOf([&] { files.Append(name, "0123456789"); }, name) != 61) return 2;
    const auto out = files.Create(folder / "whole");
    return ErrorOf([&] { out->Write(std::string(26, 'x')), out->FlushAndClose(); }, "whole") == 61 ? 0 : 3;
  });
  EXPECT_EQ(code, 0);
  EXPECT_EQ(FileBytes(name), "01234567890123456789");
}

TEST_F(FileSystemPosixTest, AFolderWithoutWriteRightIsRefused) {
  PutFile(folder / "old", "x");
  chmod(folder.Path().c_str(), 0555);
  const int code = InChild([&] {
    // The super-user may write anywhere: step down to somebody else.
    if (geteuid() == 0 && (setegid(65534) != 0 || seteuid(65534) != 0)) return 1;
    if (ErrorOf([&] { (void)files.Create(folder / "new"); }, "new") != 70) return 2;
    if (ErrorOf([&] { files.Append(folder / "old", "x"); }, "old") != (getuid() == 0 ? 70 : 0)) return 3;
    return ErrorOf([&] { files.Delete(folder / "old"); }, "old") == 70 ? 0 : 4;
  });
  chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(code, 0);
}

}  // namespace
}  // namespace chartproject
