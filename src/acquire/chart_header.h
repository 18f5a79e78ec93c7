// The header of a chart file in memory: one text per key, shared by writer, reader and both forms.
#pragma once

#include <string>

namespace chartproject {

/// Values as they stand in the file. Reading clears nothing first: a key that a file lacks keeps its former value.
struct ChartHeader {
  std::string DriveAddress;
  std::string NumberOfParameters;  ///< "1" to "4"
  std::string PXXX1;               ///< parameter of column 1, three digits; empty when not in use
  std::string PXXX2;
  std::string PXXX3;
  std::string PXXX4;
  std::string ScanTime;  ///< time between points as typed, without unit
  std::string Unit;      ///< "ms", "s" or "hh:mm:ss"
  std::string NumberOfPoints;
  std::string TriggerMode;  ///< "Event" or "Manual"
  std::string Event;        ///< event code, see EventCode
  std::string PXXX;         ///< parameter of the comparison events
  std::string Content;      ///< comparison value
  std::string StartDate;
  std::string StartTime;
  std::string EndDate;
  std::string EndTime;
};

/// The number that marks a parameter column which is not in use; never written to a file.
inline constexpr int kUnusedParameter = 999;

}  // namespace chartproject
