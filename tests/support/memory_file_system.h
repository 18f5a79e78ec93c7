// Files in memory, with the failures that tests ask for.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/file_system.h"

namespace chartproject {

/// "\" and "/" are the same; names are case-sensitive. Any folder can be entered unless `checkFolders` is set.
class MemoryFileSystem : public FileSystem {
 public:
  struct Node {
    std::string bytes;
    std::uint64_t index = 0;
    std::int64_t modified = 0;
  };

  /// Contents by name; tests read and write them directly.
  void Put(const std::string& name, std::string bytes);
  /// Other contents for the same file.
  void Overwrite(const std::string& name, std::string bytes);
  [[nodiscard]] std::string Bytes(const std::string& name) const;
  [[nodiscard]] bool Has(const std::string& name) const { return nodes_.contains(Key(name)); }

  DiskSpace space{1'000'000'000'000, 500'000'000'000, 500'000'000'000};
  /// From now on operations of a kind ("" for any) fail with that error, on files whose names begin so.
  void Break(std::string operation, int number, std::string nameStart = "");
  void Mend() { Break("", 0); }
  /// Called before each block that is read: time may pass.
  std::function<void()> beforeBlock;
  /// Bytes that may still be written before error 61; negative for no limit.
  std::int64_t writeBudget = -1;
  /// Folder names that exist.
  std::set<std::string> folders;
  bool checkFolders = false;
  int appendCount = 0;
  /// Names that somebody has locked.
  std::set<std::string> locked;
  /// Names of devices and pipes.
  std::set<std::string> devices;

  [[nodiscard]] bool FileExists(const std::string& name) override {
    return !name.empty() && (Has(name) || devices.contains(Key(name)));
  }
  [[nodiscard]] bool FolderExists(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
  void Append(const std::string& name, std::string_view bytes) override;
  [[nodiscard]] std::unique_ptr<SideFile> MakeSideFile(const SideFileRequest& request) override;
  [[nodiscard]] std::string ResolveLink(const std::string& name) override { return name; }
  void CheckReplaceable(const std::string& name) override;
  [[nodiscard]] FileRights RightsOf(const std::string& /*name*/) override { return {}; }
  void CheckOwned(const std::string& name) override { Ask("own", name); }
  [[nodiscard]] std::string TemporaryFolder() override { return "/tmp"; }
  [[nodiscard]] std::string CacheFolder() override { return "/cache"; }
  [[nodiscard]] LockAttempt Lock(const std::string& name) override;
  void Delete(const std::string& name) override;
  [[nodiscard]] std::vector<std::string> FilesIn(const std::string& folder) override;
  void Remove(const std::string& name) { nodes_.erase(Key(name)); }
  void Rename(const std::string& from, const std::string& to);
  void MakeFolder(const std::string& name) override { folders.insert(Key(name)); }
  [[nodiscard]] std::string CurrentFolder() override { return currentFolder_; }
  void ChangeFolder(const std::string& name) override;
  [[nodiscard]] DiskSpace SpaceFor(const std::string& name) override;

  /// Takes bytes off the budget; throws 61 when it is used up.
  void Spend(std::size_t bytes, const std::string& name);
  void Touch(Node& node) { node.modified = ++time_; }
  [[nodiscard]] static std::string Key(std::string name);

  std::shared_ptr<Node> NodeOf(const std::string& name) const;
  /// Throws the error that a test asked for. @param shown the name that the error gives; empty for `name`
  void Ask(const std::string& operation, const std::string& name, const std::string& shown = {}) const;

 private:
  std::map<std::string, std::shared_ptr<Node>> nodes_;
  std::string brokenOperation_, brokenNameStart_;
  int brokenNumber_ = 0;
  std::string currentFolder_ = "/start";
  std::uint64_t nextIndex_ = 1;
  std::int64_t time_ = 0;
};

}  // namespace chartproject
