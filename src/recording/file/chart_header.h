// The header of a chart file in memory: one text per key, shared by writer, reader and both forms.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace chartproject {

/// Values as they are in the file. Reading clears nothing first: a key that a file lacks keeps its former value.
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

/// A header line: its key and the field that holds its value.
struct HeaderKey {
  std::string_view key;
  std::string ChartHeader::*field;
  bool leftOutWhenEmpty;  ///< the line is written only when there is a value
};

/// All keys in the order of the file, in which a reader also tries them.
inline constexpr std::array<HeaderKey, 17> kHeaderKeys{{
    {"Drive Address=", &ChartHeader::DriveAddress, false},
    {"Number of Parameters=", &ChartHeader::NumberOfParameters, false},
    {"PXXX1=", &ChartHeader::PXXX1, false},
    {"PXXX2=", &ChartHeader::PXXX2, false},
    {"PXXX3=", &ChartHeader::PXXX3, false},
    {"PXXX4=", &ChartHeader::PXXX4, false},
    {"Scan Time=", &ChartHeader::ScanTime, false},
    {"Unit=", &ChartHeader::Unit, true},
    {"Number of Points=", &ChartHeader::NumberOfPoints, false},
    {"Trigger Mode=", &ChartHeader::TriggerMode, true},
    {"Event=", &ChartHeader::Event, false},
    {"PXXX=", &ChartHeader::PXXX, false},
    {"Content=", &ChartHeader::Content, false},
    {"Start Date=", &ChartHeader::StartDate, false},
    {"Start Time=", &ChartHeader::StartTime, false},
    {"End Date=", &ChartHeader::EndDate, false},
    {"End Time=", &ChartHeader::EndTime, false},
}};

/// The number that marks a parameter column which is not in use; never written to a file.
inline constexpr int kUnusedParameter = 999;

}  // namespace chartproject
