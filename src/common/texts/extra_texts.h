// Texts beyond the 101 numbered messages: hints, progress and chart readings, in the same three languages.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

namespace chartproject {

struct Environment;

/// One text each; the order is that of the table in extra_texts.cpp.
enum class ExtraText : std::uint8_t {
  kHintDriveAddress,   ///< "Choose a drive address." : first thing that keeps Start away
  kHintParameters,     ///< "Choose a parameter in every list that is in use."
  kHintFileName,       ///< "Enter a file name."
  kHintTime,           ///< "Enter the time among points."
  kHintPoints,         ///< "Enter the number of points."
  kHintEvent,          ///< "Choose an event."
  kHintContent,        ///< "Enter the content to compare with."
  kRunEstimate,        ///< "Duration %1, about %2."  %1 time, %2 size of the file
  kElapsedAndEnd,      ///< "Elapsed %1, expected end %2"
  kFileBeingRecorded,  ///< "%1 is being recorded by another window or program."
  kNewFile,            ///< caption of the button that asks for a new file's name
  kNewFileTip,
  kBrowseTip,
  kExportStopped,       ///< "The export was stopped. No file was written."
  kExportSkippedLines,  ///< "%1 line(s) ... left out; the first is line %2."
  kExportTooLarge,      ///< "... %1 points would fit."
  kPointsPerDivision,   ///< "Points per division: %1"
  kReadingFile,         ///< "Reading the file: %1 % (Esc stops)"
  kReadingStopped,      ///< "Stopped. The chart stays where it was."
  kFewerPoints,         ///< the file holds %1 points, its header names %2
  kMorePoints,          ///< the file goes on behind point %1, the last one of its header
  kUnknownPoints,       ///< the header names no number of points; the file holds %1
  kUnknownSeries,       ///< the header names no 1 to 4 parameters; %1 columns are shown
  kNoPointLines,        ///< the file holds a header only
  kNoParameterNames,    ///< no driver file: %1 is the reason
  kReadoutPoint,        ///< "Point %1, %2"  %2 its time
  kCursorPoint,         ///< "Cursor %1: point %2, %3"
  kCursorDifference,    ///< "Difference: %1 points, %2"
  kChartTip,            ///< how to place and remove the cursors
  kStartDrives,         ///< caption of the start window's list of drives
  kStartAcquire,        ///< buttons of the start window
  kStartOpenChart,
  kStartClose,
  kStartLanguage,
  kStartSound,
  kStartChartFiles,        ///< "Chart files", before the pattern in the file dialog
  kStartProjectMade,       ///< "A project with simulated drives was made in %1."
  kStartSettingsReplaced,  ///< heading of a list of settings and their former values
  kCount
};

/// The text in the component's language. "%1", "%2" are left for FillIn.
[[nodiscard]] std::string LoadExtraText(const Environment& environment, ExtraText text);
/// Replaces "%1", "%2" ... by the values in their order.
[[nodiscard]] std::string FillIn(std::string text, std::initializer_list<std::string> values);

}  // namespace chartproject
