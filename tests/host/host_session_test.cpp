// Sessions at the command line, held against texts that were read: commands, what they print, show and leave.
#include <ctime>
#include <fstream>
#include <regex>

#include "backends/posix/files/posix_file_system.h"
#include "chart/chart_words.h"
#include "host/host_case.h"
#include "host/line_server.h"
#include "host/manual/version.h"
#include "support/session_script.h"

namespace chartproject {
namespace {

struct HostSession : HostCase, ::testing::WithParamInterface<const char*> {
  HostSession() {
    setenv("TZ", "UTC0", 1);
    tzset();
    auto& does = script.does;
    does["chartproject"] = [this](const Words& words) { Command({words.begin() + 1, words.end()}); };
    does["put"] = [](const Words& words) { PutFile(words.at(1), words.at(2)); };
    does["remove"] = [](const Words& words) { std::filesystem::remove_all(words.at(1)); };
    does["folder"] = [](const Words& words) { std::filesystem::create_directories(words.at(1)); };
    does["show"] = [this](const Words& words) {
      Say(std::regex_replace(FileBytes(words.at(1)), std::regex("\r"), ""));
    };
    does["files"] = [this](const Words& words) { Files(words.at(1)); };
    does["environment"] = [](const Words& words) { setenv(words.at(1).c_str(), words.at(2).c_str(), 1); };
    does["options"] = [this](const Words& words) { globals.assign(words.begin() + 1, words.end()); };
    does["lock"] = [this](const Words& words) { held = files.Lock(folder / words.at(1)).lock; };
    does["unlock"] = [this](const Words& /*words*/) { held.reset(); };
    does["answer"] = [this](const Words& words) { server.Answer(words.at(1)); };
    does["taken"] = [this](const Words& /*words*/) { Say(server.Taken()); };
    does["file"] = [this](const Words& words) { screen.dialogs.fileAnswer = folder / words.at(1); };
    does["screen"] = [this](const Words& words) { screen.missing = words.at(1) == "off"; };
    does["printer"] = [this](const Words& words) { screen.printer.declined = words.at(1) == "off"; };
    for (auto& [word, step] : does) {
      step = [this, step = step](const Words& words) {
        std::filesystem::current_path(folder.Path());
        step(words);
      };
    }
    script.transcript.words = {{folder.Path(), "FOLDER"},
                               {":" + server.Port(), ":PORT"},
                               {VersionLine(), "NAME VERSION"},
                               {"ChartProject " + VersionNumber(), "NAME VERSION"}};
    screen.onForm = [this](Form& form) { script.Meet(form); };
  }
  ~HostSession() override {
    unsetenv("TZ");
    tzset();
  }

  void Command(Words words) {
    for (std::string& word : words) word = std::regex_replace(word, std::regex("PORT"), server.Port());
    const Done done = Run(std::move(words));
    Say(done.out);
    std::istringstream errors(done.err);
    for (std::string line; std::getline(errors, line);) Say("! " + line + "\n");
    for (const std::string& prompt : screen.dialogs.TakePrompts()) Say("box: " + prompt + "\n");
    std::string texts;
    for (const auto& text : std::exchange(screen.printer.texts, {})) texts += "|" + text.text;
    if (!texts.empty()) {
      const PaperSize paper = std::exchange(screen.paper, {});
      std::ostringstream place;
      place << "paper " << paper.width << " x " << paper.height << " " << std::exchange(screen.printedTo, "");
      Say(place.str() + texts);
    }
    texts.clear();
    for (const std::string& text : std::exchange(screen.pictures.texts, {})) texts += "|" + text;
    if (!texts.empty()) Say("picture" + testing::Summary(screen.pictures.drawn) + texts + "\n");
    if (done.code != 0) Say("exit " + std::to_string(done.code) + "\n");
  }
  void Files(const std::string& begin) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
      const std::string name = entry.path().lexically_relative(folder.Path()).generic_string();
      if (name.starts_with(begin)) names.push_back(name + (entry.is_directory() ? "/" : ""));
    }
    std::ranges::sort(names);
    for (const std::string& name : names) Say(name + "\n");
  }
  void Say(std::string text) {
    static const std::pair<std::regex, const char*> kOfThisRun[] = {
        {std::regex("-[0-9a-f]{8}\\b"), "-MARK"},
        {std::regex("(Recording=)[0-9a-f]{16}|(Completed=)[0-9]+"), "$1$2MARK"},
        {std::regex("! [0-9]+ points are still to go to .*"), ""},
        {std::regex("(reached: ).*"), "$1REASON"},
        {std::regex("(a database|de dados) \\((?!ftp)[^)]*"), "$1 (REASON"},
        {std::regex(", [0-9.]+ points/s, [0-9:]+ left"), ""}};
    for (const auto& [pattern, word] : kOfThisRun) text = std::regex_replace(text, pattern, word);
    if (text.ends_with('\n')) text.pop_back();
    if (!text.empty()) script.transcript.Add(text);
  }

  PosixFileSystem files;
  std::unique_ptr<FileLock> held;
  LineServer server;
  SessionScript script{std::string("host_") + GetParam()};
};

TEST_P(HostSession, IsAsItWasRead) {
  script.Run();
}

INSTANTIATE_TEST_SUITE_P(Each, HostSession,
                         ::testing::Values("drives", "read", "acquire", "refused", "files", "settings", "recover",
                                           "export", "pictures", "publish", "screens", "manual"),
                         [](const auto& session) { return std::string(session.param); });

}  // namespace
}  // namespace chartproject
