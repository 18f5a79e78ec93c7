// settings [SECTION.KEY [VALUE]]: lists, shows and sets the shared settings, straight in the store, so that a setting
// that is no longer readable can be put right.
#include <array>
#include <ostream>
#include <utility>

#include "common/settings_table.h"
#include "host/command.h"
#include "host/session.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

struct FoundSetting {
  const SettingsSection& section;
  const SettingRow& row;
};

FoundSetting Find(const std::string& name) {
  for (const SettingsSection* section : {&ConfSection(), &ProjectSection(), &FolderSection()}) {
    for (const SettingRow& row : section->rows) {
      if (name == std::string(section->name) + "." + row.key) return {*section, row};
    }
  }
  throw RefusedError("there is no setting \"" + name + "\"; \"chartproject settings\" lists them");
}

std::string StoredText(SettingsStore& store, const SettingsSection& section, const SettingRow& row) {
  return store.Read(section.name, row.key).value_or(std::string(row.defaultText));
}

class SettingsCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("settings", "List the settings, show one, or set one");
    app->add_option("SECTION.KEY", name_, "for example MyConf.strLanguage");
    value_ = app->add_option("VALUE", text_, "new value (English, Portuguese, Spanish; Yes, No; a number; a folder)");
    return app;
  }

  ExitCode Run(Session& session) override {
    SettingsStore& store = session.ThePorts().settings;
    if (name_.empty()) {
      List(session, store);
      return ExitCode::kDone;
    }
    const FoundSetting found = Find(name_);
    if (value_->count() == 0) {
      session.Out() << StoredText(store, found.section, found.row) << "\n";
    } else {
      Set(session, store, found);
    }
    return ExitCode::kDone;
  }

 private:
  static void List(Session& session, SettingsStore& store) {
    for (const SettingsSection* section : {&ConfSection(), &ProjectSection(), &FolderSection()}) {
      for (const SettingRow& row : section->rows) {
        session.Out() << section->name << "." << row.key << "=" << StoredText(store, *section, row) << "\n";
      }
    }
  }

  void Set(Session& session, SettingsStore& store, const FoundSetting& found) const {
    Settings checked;
    try {
      SetSetting(checked, found.section, found.row, text_, session.ThePorts().locale.Numbers());
    } catch (const RunTimeError& error) {
      throw RefusedError(error.Description());
    }
    const std::array setting{StoredSetting{found.row.key, SettingText(checked, found.row)}};
    store.Write(found.section.name, setting);
  }

  std::string name_;
  std::string text_;
  CLI::Option* value_ = nullptr;
};

}  // namespace

std::unique_ptr<Command> MakeSettingsCommand() {
  return std::make_unique<SettingsCommand>();
}

}  // namespace chartproject
