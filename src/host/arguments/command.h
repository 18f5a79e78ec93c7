// One command of the program: its options, and what it does.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <stdexcept>

#include "host/session/session.h"

namespace chartproject {

class Command {
 public:
  virtual ~Command() = default;
  /// Adds the subcommand with its options, which are parsed into this object. @return the subcommand
  virtual CLI::App* AddTo(CLI::App& program) = 0;
  /// Does the work. Throws RunTimeError (exit code 1) or RefusedError (exit code 2).
  [[nodiscard]] virtual ExitCode Run(Session& session) = 0;
  /// False when the standard output only reports: that it cannot be written is then no failure of the command.
  [[nodiscard]] virtual bool OutputIsItsResult() const { return true; }
};

/// Wrong usage that only shows while a command works.
class RefusedError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Each is defined in its own command_*.cpp.
[[nodiscard]] std::unique_ptr<Command> MakeInitCommand();
[[nodiscard]] std::unique_ptr<Command> MakeSettingsCommand();
[[nodiscard]] std::unique_ptr<Command> MakeDrivesCommand();
[[nodiscard]] std::unique_ptr<Command> MakePortsCommand();
[[nodiscard]] std::unique_ptr<Command> MakeScanCommand();
[[nodiscard]] std::unique_ptr<Command> MakeReadCommand();
[[nodiscard]] std::unique_ptr<Command> MakeAcquireCommand();
[[nodiscard]] std::unique_ptr<Command> MakeInfoCommand();
[[nodiscard]] std::unique_ptr<Command> MakeRecoverCommand();
[[nodiscard]] std::unique_ptr<Command> MakeViewCommand();
[[nodiscard]] std::unique_ptr<Command> MakeRenderCommand();
[[nodiscard]] std::unique_ptr<Command> MakePrintCommand();
[[nodiscard]] std::unique_ptr<Command> MakeExportCommand();
[[nodiscard]] std::unique_ptr<Command> MakePublishCommand();
/// What runs when a chart file is named without a command: as `view FILE`.
[[nodiscard]] std::unique_ptr<Command> MakeViewOf(const std::string& file);
/// Made for scripts: --help does not list it.
[[nodiscard]] std::unique_ptr<Command> MakeDescribeCommand();
/// What runs without a command: the start window. It adds no subcommand.
[[nodiscard]] std::unique_ptr<Command> MakeStartCommand();

}  // namespace chartproject
