// A value's name in the help text ("FILE", "on|off", "ADDRESS") says how it is completed.
#include "host/manual/completion.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace chartproject {

namespace {

/// How values of a name are completed.
struct ValueKind {
  std::string_view name;
  std::string_view bash;  ///< a function of the script below, called with the word
  std::string_view zsh;   ///< an action of _arguments
};

constexpr std::array kKinds{
    ValueKind{"FILE", "_chartproject_charts", "_files -g \"*.cht\""},
    ValueKind{"DIR", "_chartproject_folders", "_files -/"},
    ValueKind{"FOLDER", "_chartproject_folders", "_files -/"},
    ValueKind{"PATH", "_chartproject_files", "_files"},
    ValueKind{"FILE|FOLDER", "_chartproject_files", "_files"},
    ValueKind{"PNG", "_chartproject_files", "_files"},
    ValueKind{"PDF", "_chartproject_files", "_files"},
    ValueKind{"WORKBOOK", "_chartproject_files", "_files"},
    ValueKind{"ADDRESS", "_chartproject_listed addresses", "_chartproject_listed addresses"},
    ValueKind{"PARAMETER", "_chartproject_listed parameters", "_chartproject_listed parameters"},
    ValueKind{"P[,P...]", "_chartproject_list_of parameters", "_sequence _chartproject_listed parameters"},
    ValueKind{"CODE", "_chartproject_listed triggers", "_chartproject_listed triggers"},
    ValueKind{"SECTION.KEY", "_chartproject_listed settings", "_chartproject_listed settings"}};

constexpr std::string_view kBashHead = R"shell(# bash completion for chartproject, made from the program's own options.

# Words that the program lists, for the profile and the drive that the line names.
_chartproject_ask() {
  local at profile=() address= given=0
  for ((at = 1; at < cword; ++at)); do
    case ${words[at]} in
      --profile) profile=(--profile "${words[at + 1]}") ;;
      --address) address=${words[at + 1]} ;;
      read) given=1 ;;
      [1-9] | [0-3][0-9]) ((given)) && [[ -z $address ]] && address=${words[at]} ;;
    esac
  done
  command chartproject "${profile[@]}" describe "$1" ${address:+"$address"} 2>/dev/null | cut -f1
}
_chartproject_words() { # WORDS: one a line; what the shell takes for the end of a word is left out of the answer
  local IFS=$'\n' before=${cur%"${cur##*[=<>:]}"} at
  COMPREPLY=($(compgen -W "$1" -- "$cur"))
  for at in "${!COMPREPLY[@]}"; do printf -v "COMPREPLY[at]" %q "${COMPREPLY[at]#"$before"}"; done
}
_chartproject_listed() { _chartproject_words "$(_chartproject_ask "$1")"; }
_chartproject_list_of() {
  local before=
  [[ $cur == *,* ]] && before=${cur%,*},
  compopt -o nospace
  COMPREPLY=($(compgen -P "$before" -W "$(_chartproject_ask "$1")" -- "${cur##*,}"))
}
_chartproject_files() { compopt -o filenames; local IFS=$'\n'; COMPREPLY=($(compgen -f -- "$cur")); }
_chartproject_folders() { compopt -o filenames; local IFS=$'\n'; COMPREPLY=($(compgen -d -- "$cur")); }
_chartproject_charts() {
  compopt -o filenames
  local IFS=$'\n'
  COMPREPLY=($(compgen -d -- "$cur") $(compgen -f -X '!*.[cC][hH][tT]' -- "$cur"))
}

_chartproject() {
  local cur prev words cword at command= positional=0
  _get_comp_words_by_ref -n '=<>:' cur prev words cword
  for ((at = 1; at < cword; ++at)); do
    case ${words[at]} in
)shell";

constexpr std::string_view kBashTail = R"shell(  esac
}
complete -F _chartproject chartproject
)shell";

constexpr std::string_view kZshHead = R"shell(#compdef chartproject
# zsh completion for chartproject, made from the program's own options.

# Words that the program lists, each with its description, for the profile and the drive that the line names.
_chartproject_listed() {
  local -a profile listed address
  local line
  [[ -n $profile_folder ]] && profile=(--profile ${(Q)profile_folder})
  address=(${opt_args[--address]})
  [[ ${line_command} == read && -z $address ]] && address=(${words[2]})
  for line in ${(f)"$(command chartproject $profile describe $argv[-1] $address 2>/dev/null)"}; do
    listed+=("${${line%%$'\t'*}//:/\\:}:${line#*$'\t'}")
  done
  _describe -t $argv[-1] $argv[-1] listed
}

_chartproject() {
  local context state line_command profile_folder
  local -a line
  typeset -A opt_args
)shell";

using Options = std::vector<const CLI::Option*>;
using Commands = std::vector<const CLI::App*>;

/// Those that --help shows.
Commands CommandsOf(const CLI::App& program) {
  Commands commands = program.get_subcommands([](const CLI::App* app) { return !app->get_group().empty(); });
  return commands;
}

Options OptionsOf(const CLI::App& app, bool positional) {
  Options options = app.get_options();
  // A command's own --help is the program's.
  std::erase_if(options, [&](const CLI::Option* option) {
    return option->get_positional() != positional || (app.get_parent() != nullptr && option == app.get_help_ptr());
  });
  return options;
}

std::string ValueName(const CLI::Option& option) {
  if (option.get_positional()) return option.get_name(true);
  return option.get_type_size() > 0 ? option.get_type_name() : std::string();
}

const ValueKind* KindOf(const std::string& valueName) {
  const auto* const kind = std::ranges::find(kKinds, valueName, &ValueKind::name);
  return kind == kKinds.end() ? nullptr : kind;
}

std::string Replaced(std::string text, std::string_view what, std::string_view with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

/// The names of an option with a "|" or a blank between.
std::string NamesOf(const CLI::Option& option, const std::string& between) {
  return Replaced(option.get_name(false, true), ",", between);
}

std::string NamesOf(const Commands& commands) {
  std::string names;
  for (const CLI::App* command : commands) names += (names.empty() ? "" : "\\n") + command->get_name();
  return names;
}

/// The bash command that completes a value; empty when nothing is known of it.
std::string BashAction(const std::string& valueName) {
  const ValueKind* const kind = KindOf(valueName);
  if (kind != nullptr) return std::string(kind->bash);
  if (valueName.find('|') == std::string::npos) return {};
  return "_chartproject_words $'" + Replaced(Replaced(valueName, ":FILE", ":"), "|", "\\n") + "'";
}

/// Rows of `case $command:$prev in` for the values of options. @param command of whose options; "*" for every one
std::string BashValues(const CLI::App& app, const std::string& command) {
  std::string rows;
  for (const CLI::Option* option : OptionsOf(app, false)) {
    if (ValueName(*option).empty()) continue;
    const std::string action = BashAction(ValueName(*option));
    rows += "    " + command + ":" + Replaced(NamesOf(*option, "|"), "|", "|" + command + ":") + ") " + action +
            (action.empty() ? "return ;;\n" : "; return ;;\n");
  }
  return rows;
}

std::string BashOptionNames(const CLI::App& app) {
  std::string names;
  for (const CLI::Option* option : OptionsOf(app, false)) names += NamesOf(*option, "\\n") + "\\n";
  return names;
}

/// Rows for the places of values without a name; the last place repeats when it takes several.
std::string BashPositionals(const CLI::App& app) {
  std::string rows;
  int place = 0;
  for (const CLI::Option* option : OptionsOf(app, true)) {
    const std::string at = option->get_expected_max() > 1 ? "*" : std::to_string(place);
    ++place;
    const std::string action = BashAction(ValueName(*option));
    if (!action.empty()) rows += "    " + app.get_name() + ":" + at + ") " + action + " ;;\n";
  }
  const std::string actions = NamesOf(CommandsOf(app));  // a command's own commands, such as the "add" of "drives"
  if (!actions.empty()) rows += "    " + app.get_name() + ":0) _chartproject_words $'" + actions + "' ;;\n";
  return rows;
}

std::string InSingleQuotes(const std::string& text) {
  return "'" + Replaced(text, "'", "'\\''") + "'";
}

std::string ZshAction(const std::string& valueName) {
  const ValueKind* const kind = KindOf(valueName);
  if (kind != nullptr) return std::string(kind->zsh);
  if (valueName.find('|') == std::string::npos) return " ";
  return "(" + Replaced(Replaced(valueName, ":FILE", "\\:"), "|", " ") + ")";
}

std::string ZshText(const std::string& text) {
  std::string escaped;
  for (const char c : text)
    escaped += (c == '[' || c == ']' || c == ':' || c == '\\') ? std::string("\\") + c : std::string(1, c);
  return escaped;
}

/// The arguments of zsh's _arguments, one a line.
std::string ZshArguments(const CLI::App& app, const std::string& indent) {
  std::string arguments;
  const auto add = [&](const std::string& argument) { arguments += " \\\n" + indent + InSingleQuotes(argument); };
  for (const CLI::Option* option : OptionsOf(app, false)) {
    const std::string value = ValueName(*option);
    const std::string text = "[" + ZshText(option->get_description()) + "]" +
                             (value.empty() ? "" : ":" + ZshText(value) + ":" + ZshAction(value));
    for (const std::string& name : option->get_snames()) add("-" + name + text);
    for (const std::string& name : option->get_lnames()) add("--" + name + text);
  }
  for (const CLI::Option* option : OptionsOf(app, true)) {
    const std::string value = ValueName(*option);
    add((option->get_expected_max() > 1 ? "*:" : ":") + ZshText(value) + ":" + ZshAction(value));
  }
  const std::string actions = NamesOf(CommandsOf(app));
  if (!actions.empty() && app.get_parent() != nullptr) add(":ACTION:(" + Replaced(actions, "\\n", " ") + ")");
  return arguments;
}

}  // namespace

std::string BashCompletion(const CLI::App& program) {
  const Commands commands = CommandsOf(program);
  std::string script(kBashHead);
  for (const CLI::Option* option : OptionsOf(program, false)) {
    if (!ValueName(*option).empty()) script += "      " + NamesOf(*option, "|") + ") ((++at)) ;;\n";
  }
  script +=
      "      -*) ;;\n      *) if [[ -z $command ]]; then command=${words[at]}; else ((++positional)); fi ;;\n"
      "    esac\n  done\n  case $command:$prev in\n";
  script += BashValues(program, "*");
  for (const CLI::App* command : commands) script += BashValues(*command, command->get_name());
  script += "  esac\n  if [[ $cur == -* ]]; then\n    case $command in\n";
  for (const CLI::App* command : commands) {
    script += "      " + command->get_name() + ") _chartproject_words $'" + BashOptionNames(*command) +
              BashOptionNames(program) + "' ;;\n";
  }
  script += "      *) _chartproject_words $'" + BashOptionNames(program) + "' ;;\n    esac\n    return\n  fi\n";
  script +=
      "  case $command:$positional in\n    :0)\n      _chartproject_charts\n      local charts=(\"${COMPREPLY[@]}\")\n"
      "      _chartproject_words $'" +
      NamesOf(commands) + "'\n      COMPREPLY+=(\"${charts[@]}\") ;;\n";
  for (const CLI::App* command : commands) script += BashPositionals(*command);
  return script + std::string(kBashTail);
}

std::string ZshCompletion(const CLI::App& program) {
  std::string script(kZshHead);
  const std::string own = ZshArguments(program, "    ");
  script +=
      "  _arguments -C" + own.substr(0, own.rfind(" \\\n")) +
      " \\\n    '1: :->command' \\\n    '*:: :->arguments'\n  profile_folder=${opt_args[--profile]}\n  case $state in\n"
      "    command)\n      local -a commands=(\n";
  for (const CLI::App* command : CommandsOf(program)) {
    script += "        " + InSingleQuotes(command->get_name() + ":" + ZshText(command->get_description())) + "\n";
  }
  script +=
      "      )\n      _describe -t commands command commands\n      _files -g \"*.cht\" ;;\n    arguments)\n"
      "      line_command=$line[1]\n      case $line_command in\n";
  for (const CLI::App* command : CommandsOf(program)) {
    script +=
        "        " + command->get_name() + ")\n          _arguments" + ZshArguments(*command, "            ") + " ;;\n";
  }
  return script + "      esac ;;\n  esac\n}\n\n_chartproject \"$@\"\n";
}

}  // namespace chartproject
