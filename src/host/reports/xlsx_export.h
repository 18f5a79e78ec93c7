// export to .xlsx: a recording as an engineer's workbook.
#pragma once

#include <string>

#include "chart/plain/plain_table.h"
#include "chart/view/chart_view.h"
#include "recording/file/component.h"

namespace chartproject {

/// Writes charts, header and points; failed readings are empty cells. The workbook has its name once it is complete.
/// @param view has the file, its series named. @param output full name; a link was followed
/// @param table columns, range, clock and first moment as for a plain table; its format does not count
/// Throws RunTimeError 61 when the disk has not the room for it.
PlainTableReport WriteXlsx(Component& component, ChartView& view, const std::string& output, const FileRights& rights,
                           const PlainTable& table, const PlainProgress& progress);

}  // namespace chartproject
