// What "drives" does besides showing the table: add, remove, test, check.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/session/session.h"

namespace chartproject {

class DrivesActions {
 public:
  /// Adds the four subcommands.
  void AddTo(CLI::App& drives);
  /// True when one of them was given.
  [[nodiscard]] bool Given() const;
  /// Throws as Command::Run does.
  [[nodiscard]] ExitCode Run(Session& session) const;

 private:
  [[nodiscard]] ExitCode Add(Session& session) const;
  [[nodiscard]] ExitCode Remove(Session& session) const;
  [[nodiscard]] ExitCode Test(Session& session) const;
  [[nodiscard]] ExitCode Check(Session& session) const;

  CLI::App* add_ = nullptr;
  CLI::App* remove_ = nullptr;
  CLI::App* test_ = nullptr;
  CLI::App* check_ = nullptr;
  std::string address_;
  std::string model_;
  std::string firmware_;
  std::string tag_;
  std::string file_;
};

}  // namespace chartproject
