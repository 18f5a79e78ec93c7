// A file that counts what is read of it.
#include "recording/journal/read_progress.h"

#include <algorithm>
#include <utility>

namespace chartproject {

namespace {

constexpr std::uint64_t kBytesPerReport = 4'000'000;

class FollowedFile : public InputFile {
 public:
  FollowedFile(std::unique_ptr<InputFile> file, ReadProgress& progress) : file_(std::move(file)), progress_(progress) {}
  std::size_t Read(std::span<char> buffer) override {
    const std::size_t count = file_->Read(buffer);
    progress_.Add(count);
    return count;
  }
  void Seek(std::uint64_t offset) override { file_->Seek(offset); }
  FileIdentity Identity() override { return file_->Identity(); }

 private:
  std::unique_ptr<InputFile> file_;
  ReadProgress& progress_;
};

}  // namespace

std::unique_ptr<InputFile> ReadProgress::Follow(std::unique_ptr<InputFile> file) {
  return std::make_unique<FollowedFile>(std::move(file), *this);
}

void ReadProgress::Add(std::uint64_t bytes) {
  done_ += bytes;
  if (done_ - reported_ < kBytesPerReport) return;
  reported_ = done_;
  constexpr double kAll = 100;
  const double part = static_cast<double>(done_) / static_cast<double>(std::max(expected_, done_));
  report_(static_cast<int>(kAll * part));
}

std::unique_ptr<InputFile> Followed(std::unique_ptr<InputFile> file, ReadProgress* progress) {
  return progress == nullptr ? std::move(file) : progress->Follow(std::move(file));
}

}  // namespace chartproject
