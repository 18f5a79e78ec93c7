// settings [SECTION.KEY [VALUE]]: lists, shows and sets the shared settings, directly in the store, so that a setting
// that became unreadable can be corrected.
#include <algorithm>
#include <array>
#include <ostream>
#include <string_view>
#include <variant>
#include <vector>

#include "common/environment/language.h"
#include "common/environment/settings_table.h"
#include "host/arguments/command.h"
#include "host/reports/json_output.h"
#include "host/session/session.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

NamedSetting Find(const std::string& name) {
  for (const NamedSetting& setting : AllSettings()) {
    if (setting.Name() == name) return setting;
  }
  throw RefusedError("there is no setting \"" + name + R"("; "chartproject settings" lists them)");
}

std::string StoredText(SettingsStore& store, const NamedSetting& setting) {
  return store.Read(setting.section.name, setting.row.key).value_or(std::string(setting.row.defaultText));
}

/// The texts that a setting may have; empty for one that takes any.
std::vector<std::string_view> Choices(const SettingRow& row) {
  if (row.key == "strLanguage") {
    std::vector<std::string_view> names;
    for (const LanguageRow& language : kLanguages) names.push_back(language.name);
    return names;
  }
  if (row.key == "intChartType") return {"0", "1", "2", "3", "4", "5", "6", "7"};
  if (row.defaultText == "Yes" || row.defaultText == "No") return {"Yes", "No"};
  return {};
}

/// Only digits: a locale's grouping mark would make 15 of "1.5". Throws RefusedError.
void CheckValue(const std::string& name, const SettingRow& row, const std::string& text) {
  const bool isNumber = std::holds_alternative<std::int16_t Settings::*>(row.field) ||
                        std::holds_alternative<std::int32_t Settings::*>(row.field);
  const std::size_t digits = text.starts_with('-') ? 1 : 0;
  const bool whole = text.size() > digits && text.find_first_not_of("0123456789", digits) == std::string::npos;
  if (isNumber && !whole) throw RefusedError(name + ": \"" + text + "\" is not a whole number");
  const std::vector<std::string_view> choices = Choices(row);
  if (choices.empty() || std::ranges::find(choices, text) != choices.end()) return;
  std::string listed;
  for (const std::string_view choice : choices) listed += (listed.empty() ? "" : ", ") + std::string(choice);
  throw RefusedError(name + ": \"" + text + "\" is not one of " + listed);
}

class SettingsCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("settings", "List the settings, show one, or set one");
    app->add_option("SECTION.KEY", name_, "for example MyConf.strLanguage")->type_name("");
    value_ = app->add_option("VALUE", text_, "new value (English, Portuguese, Spanish; Yes, No; a number; a folder)")
                 ->type_name("");
    app->add_flag("--json", json_, "the list, or the one that is named, as one JSON object")->excludes(value_);
    return app;
  }

  ExitCode Run(Session& session) override {
    SettingsStore& store = session.ThePorts().settings;
    if (name_.empty() || json_) {
      List(session, store);
      return ExitCode::kDone;
    }
    if (name_ == LinkSettingName()) return ShowOrSetLink(session, store);
    const NamedSetting found = Find(name_);
    if (value_->count() == 0) {
      session.Out() << StoredText(store, found) << "\n";
    } else {
      Set(session, store, found);
    }
    return ExitCode::kDone;
  }

 private:
  /// All settings, or the one that is named.
  void List(Session& session, SettingsStore& store) const {
    nlohmann::ordered_json document = nlohmann::ordered_json::object();
    const auto add = [&](const std::string& name, const std::string& text) {
      if (!name_.empty() && name != name_) return;
      if (json_) {
        document[name] = text;
      } else {
        session.Out() << name << "=" << text << "\n";
      }
    };
    if (!name_.empty() && name_ != LinkSettingName()) (void)Find(name_);  // refuses a name that is none
    for (const NamedSetting& setting : AllSettings()) add(setting.Name(), StoredText(store, setting));
    add(LinkSettingName(), StoredLink(store));
    if (json_) PrintDocument(session.Out(), document);
  }

  /// The choice of drives is the program's own setting, which the component does not have.
  static std::string LinkSettingName() { return std::string(kLinkSection) + "." + kLinkKey; }

  ExitCode ShowOrSetLink(Session& session, SettingsStore& store) const {
    if (value_->count() == 0) {
      session.Out() << StoredLink(store) << "\n";
      return ExitCode::kDone;
    }
    try {
      session.Links().Choose(text_);
    } catch (const RunTimeError& error) {
      throw RefusedError(LinkSettingName() + ": " + error.Description());
    }
    const std::array setting{StoredSetting{kLinkKey, text_}};
    store.Write(kLinkSection, setting);
    return ExitCode::kDone;
  }

  void Set(Session& session, SettingsStore& store, const NamedSetting& found) const {
    CheckValue(name_, found.row, text_);
    Settings checked;
    try {
      SetSetting(checked, found, text_, session.ThePorts().locale.Numbers());
    } catch (const RunTimeError& error) {
      throw RefusedError(error.Description());
    }
    const std::array setting{StoredSetting{found.row.key, SettingText(checked, found.row)}};
    store.Write(found.section.name, setting);
  }

  std::string name_;
  std::string text_;
  bool json_ = false;
  CLI::Option* value_ = nullptr;
};

}  // namespace

std::unique_ptr<Command> MakeSettingsCommand() {
  return std::make_unique<SettingsCommand>();
}

}  // namespace chartproject
