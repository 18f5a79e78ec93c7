// One line of a table for other programs.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "chart/plain/plain_value.h"
#include "common/values/growing_text.h"

namespace chartproject {

enum class PlainFormat : std::uint8_t {
  kCommas,    ///< .csv: RFC 4180, lines end with a line feed
  kTabs,      ///< .tsv
  kJsonLines  ///< .jsonl: one object a point, the heads as keys
};

/// "P002 Motor speed [rpm]"; name and unit may be empty.
[[nodiscard]] std::string PlainHead(std::string number, const std::string& name, const std::string& unit);

/// Heads of columns: one that comes twice gets its number, "(2)", so that a reader can tell them apart.
void MakeHeadsUnique(std::vector<std::string>& heads);

/// Writes the lines of one table from left to right.
class PlainLine {
 public:
  /// @param heads of the value columns, UTF-8, for example "P002 Motor speed [rpm]"
  PlainLine(PlainFormat format, const std::vector<std::string>& heads);

  /// The head line; nothing of a format that has none.
  void AppendHead(GrowingText& text, std::span<const std::string> heads) const;

  /// A line: first its time as a text, then each value by one of the others, in the order of the columns.
  void Begin(GrowingText& text);
  /// What goes before and after a time that the caller writes itself; it needs no quotes of a table.
  void BeginTime(GrowingText& text) const;
  void EndTime(GrowingText& text) const { BeginTime(text); }
  void AppendTime(GrowingText& text, std::string_view time) const { AppendText(text, time); }
  /// The separator, in JSON with the key of the next column.
  void NextColumn(GrowingText& text);
  void AppendText(GrowingText& text, std::string_view value) const;
  /// A value that is not known.
  void AppendNothing(GrowingText& text) const {
    if (json_) text.Append("null");
  }
  void End(GrowingText& text) const {
    if (json_) text.Append('}');
    text.Append('\n');
  }

 private:
  bool json_;
  char separator_;
  std::vector<std::string> keys_;
  std::size_t column_ = 0;
};

}  // namespace chartproject
