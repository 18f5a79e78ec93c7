// The rows of the texts, by group; for the files that hold or look up rows.
#pragma once

#include <span>
#include <string_view>

#include "texts/text.h"

namespace chartproject {

/// One text in three languages, UTF-8. Blanks at its ends belong to it.
struct TextRow {
  Text id;
  std::string_view portuguese;
  std::string_view english;
  std::string_view spanish;
};

/// True when the rows' ids follow one another from `first` on and no text is empty.
constexpr bool InOrder(std::span<const TextRow> rows, Text first) {
  auto next = static_cast<unsigned>(first);
  for (const TextRow& row : rows) {
    if (static_cast<unsigned>(row.id) != next++) return false;
    if (row.portuguese.empty() || row.english.empty() || row.spanish.empty()) return false;
  }
  return !rows.empty();
}

// The groups, in the order of the enumeration.
[[nodiscard]] std::span<const TextRow> MessageRows() noexcept;
[[nodiscard]] std::span<const TextRow> AcquireRows() noexcept;
[[nodiscard]] std::span<const TextRow> ChartRows() noexcept;
[[nodiscard]] std::span<const TextRow> WindowRows() noexcept;
[[nodiscard]] std::span<const TextRow> DriveRows() noexcept;
[[nodiscard]] std::span<const TextRow> ErrorRows() noexcept;

}  // namespace chartproject
