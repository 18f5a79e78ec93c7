// What the fuzzers feed: each takes any bytes and aborts when a promise is broken.
#pragma once

#include <string_view>

namespace chartproject::fuzz {

// Readers (reader_targets.cpp).
void Drive(std::string_view bytes);          ///< a drive file
void Driver(std::string_view bytes);         ///< a driver file
void Scenario(std::string_view bytes);       ///< a scenario
void CompanionFile(std::string_view bytes);  ///< a companion of a chart file
void Position(std::string_view bytes);       ///< how far a recording was published
void Settings(std::string_view bytes);       ///< the file of the settings
void Number(std::string_view bytes);         ///< a number; the first byte chooses the locale
void Journal(std::string_view bytes);        ///< the journal of an interrupted recording, and its recovery
void Overview(std::string_view bytes);       ///< a kept overview of a chart file; its sums are made right
void Visible(std::string_view bytes);        ///< any text on its way to a terminal

// Forms (form_targets.cpp).
void AccessKeys(std::string_view bytes);  ///< captions, one a line
void Layout(std::string_view bytes);      ///< a form: each byte adds, wraps or changes a box

// Writers (writer_targets.cpp): the first bytes choose values, the others are texts, one a line.
void Csv(std::string_view bytes);
void Xls(std::string_view bytes);
void Xlsx(std::string_view bytes);
void Plain(std::string_view bytes);  ///< a chart file into a table for other programs

}  // namespace chartproject::fuzz
