// publish FILE... --to URL: the points of recordings, finished or running, into a database.
#include <algorithm>
#include <ostream>

#include "backends/posix/keyboard_signals.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/reports/json_output.h"
#include "host/reports/publish_queue.h"

namespace chartproject {

namespace {

constexpr int kUsualWait = 120;  // seconds

class PublishCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("publish", "Send the points of recordings to a database");
    app->add_option("FILE", given_, "chart files; one that is being recorded is followed to its end")
        ->type_name("")
        ->required()
        ->expected(-1);
    options_.AddTo(*app, "--to", kUsualWait);
    app->add_flag("--again", again_, "from the first point, also of what the server has acknowledged");
    app->add_flag("--json", json_, "the report at the end as one JSON array");
    return app;
  }

  ExitCode Run(Session& session) override {
    options_.RequireAddress();
    std::vector<std::string> files;
    for (const std::string& name : given_) {
      std::string full = FullName(name);
      if (std::ranges::find(files, full) == files.end()) files.push_back(std::move(full));
    }
    PublishQueue queue(session, options_, again_);
    KeyboardSignals::Watch();
    const ExitCode code = queue.Run(files);
    if (json_) {
      PrintDocument(session.Out(), queue.Json());
    } else {
      session.Out() << queue.Sentences();
    }
    return code;
  }

 private:
  std::vector<std::string> given_;
  PublishOptions options_;
  bool again_ = false;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakePublishCommand() {
  return std::make_unique<PublishCommand>();
}

}  // namespace chartproject
