// The command line in troff's man macros.
#include "host/manual/manual_page.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <vector>

namespace chartproject {

namespace {

/// A text as troff shows it unchanged.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    const bool lineStart = escaped.empty() || escaped.back() == '\n';
    if (lineStart && (c == '.' || c == '\'')) escaped += "\\&";
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::vector<std::string> Split(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(separator, at), text.size());
    if (end > at) parts.push_back(text.substr(at, end - at));
    at = end + separator.size();
  }
  return parts;
}

std::string Upper(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

/// "  2  refused" begins an entry, "     and more" goes on with it: one tagged paragraph an entry.
std::string Entries(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    const std::size_t begin = std::min(line.find_first_not_of(' '), line.size());
    const std::size_t end = line.find("  ", begin);
    if (begin == 2 && end != std::string::npos) {
      text += ".TP\n.B " + Escaped(line.substr(begin, end - begin)) + "\n" +
              Escaped(line.substr(line.find_first_not_of(' ', end))) + "\n";
    } else if (begin == 2) {
      text += ".TP\n.B " + Escaped(line.substr(begin)) + "\n";
    } else {
      text += Escaped(line.substr(begin)) + "\n";
    }
  }
  return text;
}

std::string Footer(const std::string& footer) {
  std::string text;
  for (const std::string& paragraph : Split(footer, "\n\n")) {
    std::vector<std::string> lines = Split(paragraph, "\n");
    if (lines.front().ends_with(':')) {
      text += ".SH " + Upper(lines.front().substr(0, lines.front().size() - 1)) + "\n";
      lines.erase(lines.begin());
      text += Entries(lines);
    } else {
      text += ".PP\n" + Escaped(paragraph) + "\n";
    }
  }
  return text;
}

std::string OptionsOf(const CLI::App& app) {
  std::string text;
  for (const CLI::Option* option : app.get_options()) {
    if (app.get_parent() != nullptr && option == app.get_help_ptr()) continue;  // the same at every command
    text += ".TP\n";
    if (option->get_positional()) {
      text += ".I " + Escaped(option->get_name(true));
    } else {
      const std::string type = option->get_type_size() > 0 ? option->get_type_name() : "";
      text += ".BR " + Escaped(option->get_name(false, true)) + (type.empty() ? "" : " \" \" " + Escaped(type));
    }
    const std::string standard = option->get_default_str();
    text += "\n" + Escaped(option->get_description() + (standard.empty() ? "" : " [" + standard + "]")) + "\n";
  }
  return text;
}

std::string Synopsis(const CLI::App& app) {
  std::string text;
  for (const CLI::Option* option : app.get_options()) {
    if (!option->get_positional()) continue;
    const std::string name = "\\fI" + Escaped(option->get_name(true)) + "\\fR";
    const std::string more = option->get_expected_max() > 1 ? "..." : "";
    text += " " + (option->get_required() ? name + more : "[" + name + "]" + more);
  }
  return text;
}

}  // namespace

std::string ManualPage(const CLI::App& program, const std::string& version) {
  const std::string& name = program.get_name();
  std::string description = program.get_description();
  description.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(description.front())));
  if (description.ends_with('.')) description.pop_back();
  const std::string bold = "\\fB" + Escaped(name) + "\\fR";
  std::string page = ".TH " + Upper(name) + " 1 \"\" \"ChartProject " + version + "\" \"User Commands\"\n.SH NAME\n" +
                     Escaped(name) + " \\- " + Escaped(description) + "\n.SH SYNOPSIS\n" + bold + " [\\fIOPTIONS\\fR]" +
                     Synopsis(program) + "\n.br\n" + bold + " [\\fIOPTIONS\\fR] \\fICOMMAND\\fR ...\n.SH OPTIONS\n" +
                     OptionsOf(program) + ".SH COMMANDS\n";
  for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; })) {
    if (command->get_group().empty()) continue;  // not for users
    page += ".SS " + Escaped(command->get_name()) + Synopsis(*command) + "\n" + Escaped(command->get_description()) +
            ".\n" + OptionsOf(*command);
  }
  return page + ".SH NOTES\n" + Footer(program.get_footer());
}

}  // namespace chartproject
