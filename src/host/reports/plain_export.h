// export --plain: a recording as a table for other programs, into a file or to standard output.
#pragma once

#include <string>
#include <vector>

#include "chart/plain/plain_table.h"
#include "chart/view/chart_view.h"

namespace chartproject {

/// By the word "csv", "tsv" or "jsonl"; without one by the ending of the output's name, and csv for standard output.
/// Throws RefusedError that lists them.
[[nodiscard]] PlainFormat PlainFormatOf(const std::string& word, const std::string& output);

/// The columns of a chart file, with the names and units that the view's series have.
/// @param view has a file, and outlives the columns
[[nodiscard]] std::vector<PlainColumn> PlainColumnsOf(const ChartView& view);

/// Writes a table to standard output for "-", else to a file, which has its name once it is complete. Nothing is left
/// of a table that was given up, that failed or that has no points. @param output full name, or "-"
PlainTableReport WritePlainTable(Ports& ports, const std::string& chartFile, const std::string& output,
                                 const PlainTable& table, const PlainProgress& progress);

}  // namespace chartproject
