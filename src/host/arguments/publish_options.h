// Options that name a database and say who we are to it.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/line_poster.h"
#include "texts/language.h"

namespace chartproject {

/// Those of `acquire --publish` and `publish --to`.
class PublishOptions {
 public:
  /// @param urlOption "--publish" or "--to"; @param usualWait seconds
  void AddTo(CLI::App& command, const std::string& urlOption, int usualWait);

  /// An address was given; by the environment, too, where the command asks for one.
  [[nodiscard]] bool Given() const noexcept { return !url_.empty(); }
  /// Throws RefusedError when there are options without an address.
  void RefuseWithoutAddress() const;
  /// Takes the address that the environment names where none was given. Throws RefusedError without one.
  void RequireAddress();

  /// Checks all, reads the token. Throws RefusedError, and RunTimeError in the user's language; what it throws holds no
  /// token.
  [[nodiscard]] std::unique_ptr<LinePoster> MakePoster(FileSystem& files, Language language) const;
  [[nodiscard]] const std::string& Measurement() const noexcept { return measurement_; }
  /// The name of this machine, or the one that was given for it.
  [[nodiscard]] std::string Host() const;
  /// Seconds.
  [[nodiscard]] int Wait() const;
  /// The command that sends the rest of a recording to the same database.
  [[nodiscard]] std::string CommandFor(const std::string& chartFile) const;

 private:
  [[nodiscard]] std::unique_ptr<LinePoster> PosterOf(FileSystem& files) const;
  [[nodiscard]] std::string Token(FileSystem& files) const;

  std::string urlOption_;
  int usualWait_ = 0;
  std::string url_;
  std::string database_;
  std::string measurement_ = "chart";
  std::string host_;
  std::string tokenFile_;
  std::string certificates_;
  std::string clientCertificate_;
  std::string clientKey_;
  std::string wait_;
};

}  // namespace chartproject
