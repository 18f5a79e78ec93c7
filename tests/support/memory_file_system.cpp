// The in-memory files.
#include "support/memory_file_system.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "common/values/text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

class MemoryInput : public InputFile {
 public:
  MemoryInput(const MemoryFileSystem& files, std::shared_ptr<MemoryFileSystem::Node> node)
      : files_(files), node_(std::move(node)) {}
  std::size_t Read(std::span<char> buffer) override {
    if (files_.beforeBlock) files_.beforeBlock();
    if (at_ >= node_->bytes.size()) return 0;
    const std::size_t count = std::min(buffer.size(), node_->bytes.size() - at_);
    std::memcpy(buffer.data(), node_->bytes.data() + at_, count);
    at_ += count;
    return count;
  }
  void Seek(std::uint64_t offset) override { at_ = static_cast<std::size_t>(offset); }
  FileIdentity Identity() override { return {1, node_->index, node_->bytes.size(), node_->modified}; }

 private:
  const MemoryFileSystem& files_;
  std::shared_ptr<MemoryFileSystem::Node> node_;
  std::size_t at_ = 0;
};

class MemoryOutput : public OutputFile {
 public:
  MemoryOutput(MemoryFileSystem& files, std::shared_ptr<MemoryFileSystem::Node> node, std::string name,
               std::shared_ptr<bool> flushed)
      : files_(files), node_(std::move(node)), name_(std::move(name)), flushed_(std::move(flushed)) {}
  void Write(std::string_view bytes) override {
    files_.Spend(bytes.size(), name_);
    if (node_->bytes.size() < at_ + bytes.size()) node_->bytes.resize(at_ + bytes.size());
    std::memcpy(node_->bytes.data() + at_, bytes.data(), bytes.size());
    at_ += bytes.size();
    *flushed_ = false;
    files_.Touch(*node_);
  }
  void Seek(std::uint64_t offset) override { at_ = static_cast<std::size_t>(offset); }
  void FlushAndClose() override { *flushed_ = true; }

 private:
  MemoryFileSystem& files_;
  std::shared_ptr<MemoryFileSystem::Node> node_;
  std::string name_;
  std::shared_ptr<bool> flushed_;
  std::size_t at_ = 0;
};

class MemorySideFile : public SideFile {
 public:
  MemorySideFile(MemoryFileSystem& files, std::string target, std::string name, std::string shown)
      : files_(files),
        target_(std::move(target)),
        name_(std::move(name)),
        shown_(std::move(shown)),
        node_(files.NodeOf(name_)) {}
  ~MemorySideFile() override {
    if (!kept_ && HasItsName()) files_.Remove(name_);
  }
  const std::string& Name() const override { return name_; }
  bool HasItsName() const override { return files_.Has(name_) && files_.NodeOf(name_) == node_; }
  std::unique_ptr<OutputFile> OpenForWriting() override {
    return std::make_unique<MemoryOutput>(files_, node_, shown_, flushed_);
  }
  std::unique_ptr<InputFile> OpenForReading() override { return std::make_unique<MemoryInput>(files_, node_); }
  DiskSpace AppendAndMeasure(std::string_view bytes) override {
    try {
      files_.Ask("open", name_);
    } catch (const RunTimeError& error) {
      throw SideFileAway(error);
    }
    if (!HasItsName() || node_->bytes.size() != appended_) throw SideFileLost(shown_);
    files_.Append(name_, bytes);
    appended_ += bytes.size();
    return files_.SpaceFor(name_);
  }
  void ReplaceTarget() override {
    files_.Ask("rename", name_, shown_);
    Rename();
  }
  bool TakeTarget() override {
    files_.Ask("rename", name_, shown_);
    if (files_.FileExists(target_)) return false;
    Rename();
    return true;
  }
  void Keep() noexcept override { kept_ = true; }

 private:
  void Rename() {
    if (!*flushed_) throw RunTimeError(error_number::kPathFileAccess, "a power cut would lose " + shown_);
    files_.Rename(name_, target_);
    kept_ = true;
  }

  MemoryFileSystem& files_;
  std::string target_, name_, shown_;
  std::shared_ptr<MemoryFileSystem::Node> node_;
  std::size_t appended_ = 0;
  std::shared_ptr<bool> flushed_ = std::make_shared<bool>(true);  ///< all that was written through OpenForWriting
  bool kept_ = false;
};

}  // namespace

std::string MemoryFileSystem::Key(std::string name) {
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

void MemoryFileSystem::Put(const std::string& name, std::string bytes) {
  auto node = std::make_shared<Node>();
  node->bytes = std::move(bytes);
  node->index = nextIndex_++;
  Touch(*node);
  nodes_[Key(name)] = std::move(node);
}

void MemoryFileSystem::Overwrite(const std::string& name, std::string bytes) {
  const auto node = NodeOf(name);
  node->bytes = std::move(bytes);
  Touch(*node);
}

std::string MemoryFileSystem::Bytes(const std::string& name) const {
  const auto found = nodes_.find(Key(name));
  return found == nodes_.end() ? std::string() : found->second->bytes;
}

bool MemoryFileSystem::FolderExists(const std::string& name) {
  return folders.contains(Key(name));
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::NodeOf(const std::string& name) const {
  const auto found = nodes_.find(Key(name));
  if (found == nodes_.end()) throw RunTimeError(error_number::kFileNotFound, "File not found: " + name);
  return found->second;
}

void MemoryFileSystem::Break(std::string operation, int number, std::string nameStart) {
  brokenOperation_ = std::move(operation);
  brokenNumber_ = number;
  brokenNameStart_ = std::move(nameStart);
}

void MemoryFileSystem::Ask(const std::string& operation, const std::string& name, const std::string& shown) const {
  const bool meant = brokenOperation_.empty() || brokenOperation_ == operation;
  if (brokenNumber_ != 0 && meant && name.starts_with(brokenNameStart_))
    throw RunTimeError(brokenNumber_, "broken: " + (shown.empty() ? name : shown));
}

std::unique_ptr<InputFile> MemoryFileSystem::OpenForReading(const std::string& name) {
  Ask("read", name);
  if (devices.contains(Key(name))) throw NotARegularFile(name);
  return std::make_unique<MemoryInput>(*this, NodeOf(name));
}

std::unique_ptr<SideFile> MemoryFileSystem::MakeSideFile(const SideFileRequest& request) {
  const std::string& target = request.target;
  for (int n = 0; n < request.names; ++n) {
    const std::string name = SideFileName(target, request.ending, n);
    Ask("create", name, request.names == 1 ? name : target);
    if (Has(name)) continue;
    Put(name, "");
    return std::make_unique<MemorySideFile>(*this, target, name, request.names == 1 ? name : target);
  }
  throw RunTimeError(error_number::kPathFileAccess, "in the way: " + target);
}

void MemoryFileSystem::CheckReplaceable(const std::string& name) {
  if (FolderExists(name)) throw RunTimeError(error_number::kPathFileAccess, name + ": this is a folder");
  if (devices.contains(Key(name))) throw NotARegularFile(name);
}

void MemoryFileSystem::Append(const std::string& name, std::string_view bytes) {
  Ask("append", name);
  Spend(bytes.size(), name);
  if (!Has(name)) Put(name, "");
  const auto node = NodeOf(name);
  node->bytes.append(bytes);
  Touch(*node);
  ++appendCount;
}

LockAttempt MemoryFileSystem::Lock(const std::string& name) {
  class MemoryLock : public FileLock {
   public:
    MemoryLock(std::set<std::string>& names, std::string name) : names_(names), name_(std::move(name)) {}
    ~MemoryLock() override { names_.erase(name_); }

   private:
    std::set<std::string>& names_;
    std::string name_;
  };
  if (!locked.insert(Key(name)).second) return {nullptr, name + ".lock"};
  return {std::make_unique<MemoryLock>(locked, Key(name)), {}};
}

void MemoryFileSystem::Delete(const std::string& name) {
  Ask("delete", name);
  NodeOf(name);
  nodes_.erase(Key(name));
}

std::vector<std::string> MemoryFileSystem::FilesIn(const std::string& folder) {
  Ask("list", folder);
  std::vector<std::string> names;
  for (const auto& [name, node] : nodes_) {
    const std::string base(BaseName(name));
    if (Key(JoinPath(folder, base)) == name) names.push_back(base);
  }
  return names;
}

void MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  auto node = NodeOf(from);
  nodes_.erase(Key(from));
  nodes_[Key(to)] = std::move(node);
}

void MemoryFileSystem::ChangeFolder(const std::string& name) {
  if (checkFolders && !FolderExists(name)) throw RunTimeError(error_number::kPathNotFound, "Path not found: " + name);
  currentFolder_ = name;
}

DiskSpace MemoryFileSystem::SpaceFor(const std::string& name) {
  Ask("space", name);
  return space;
}

void MemoryFileSystem::Spend(std::size_t bytes, const std::string& name) {
  if (writeBudget < 0) return;
  if (static_cast<std::int64_t>(bytes) > writeBudget) throw RunTimeError(error_number::kDiskFull, "Disk full: " + name);
  writeBudget -= static_cast<std::int64_t>(bytes);
}

}  // namespace chartproject
