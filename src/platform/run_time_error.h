// The one error type that the system throws: a numbered run-time error of the platform.
#pragma once

#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "texts/texts.h"

namespace chartproject {

/// Numbers of the run-time errors that the system raises itself.
namespace error_number {
inline constexpr int kInvalidProcedureCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kDiskFull = 61;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kInvalidFileFormat = 321;
inline constexpr int kResourceNotFound = 326;
inline constexpr int kInvalidPropertyValue = 380;
inline constexpr int kCannotCreateObject = 429;
inline constexpr int kPropertyNotSupported = 438;
inline constexpr int kAutomation = 440;
inline constexpr int kInvalidPicture = 481;
inline constexpr int kPrinter = 482;
inline constexpr int kClipboard = 521;
inline constexpr int kApplicationDefined = 1004;  ///< refused by a spreadsheet application
inline constexpr int kDialogCancelled = 32755;
}  // namespace error_number

/// A run-time error: a number of the platform, a description for the user and the place that raised it.
/// Status results (reads, checks) are return values; everything that cannot go on throws this.
class RunTimeError : public std::runtime_error {
 public:
  /// @param number one of error_number, or another number of the platform
  /// @param description what happened, with the name of the file or value concerned (UTF-8)
  /// @param source the component that raised it; "ChartProject" for errors of this system
  explicit RunTimeError(int number, const std::string& description, std::string source = "ChartProject")
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}
  /// An error whose description is a text in the user's language. @param values of the text's places "%1", "%2" ...
  RunTimeError(int number, Text text, std::initializer_list<std::string> values = {})
      : std::runtime_error(FillIn(TextIn(Language::kEnglish, text), values)),
        number_(number),
        source_("ChartProject"),
        languages_(InAllLanguages(text, values)) {}

  [[nodiscard]] int Number() const noexcept { return number_; }
  /// In English, or as the system words it.
  [[nodiscard]] std::string Description() const { return what(); }
  /// In a language, where the error has a text; else as Description().
  [[nodiscard]] std::string Description(Language language) const {
    return languages_.empty() ? what() : languages_[static_cast<std::size_t>(language)];
  }
  [[nodiscard]] const std::string& Source() const noexcept { return source_; }
  /// The same error with its place, a text filled with the values, before the description.
  [[nodiscard]] RunTimeError At(Text place, std::initializer_list<std::string> values) const {
    RunTimeError placed(number_, FillIn(TextIn(Language::kEnglish, place), values) + what(), source_);
    placed.languages_.reserve(std::size(kLanguages));
    for (const LanguageRow& row : kLanguages) {
      placed.languages_.push_back(FillIn(TextIn(row.language, place), values) + Description(row.language));
    }
    return placed;
  }

 private:
  static std::vector<std::string> InAllLanguages(Text text, std::initializer_list<std::string> values) {
    std::vector<std::string> descriptions;
    descriptions.reserve(std::size(kLanguages));
    for (const LanguageRow& row : kLanguages) descriptions.push_back(FillIn(TextIn(row.language, text), values));
    return descriptions;
  }

  int number_;
  std::string source_;
  std::vector<std::string> languages_;  ///< by Language; empty for an error without a text
};

/// A device, pipe or socket where a file is wanted. Nothing was read from it or written to it.
class NotARegularFile : public RunTimeError {
 public:
  explicit NotARegularFile(const std::string& name)
      : RunTimeError(error_number::kPathFileAccess, Text::kNotARegularFile, {name}) {}
};

/// A side file that was removed, replaced or cut by somebody else. What was appended before may be gone.
class SideFileLost : public RunTimeError {
 public:
  explicit SideFileLost(const std::string& name)
      : RunTimeError(error_number::kPathFileAccess, Text::kSideFileLost, {name}) {}
};

/// A side file that cannot be opened now, for example because its disk refuses writing. Nothing was written, and it may
/// be there again later.
class SideFileAway : public RunTimeError {
 public:
  explicit SideFileAway(const RunTimeError& reason) : RunTimeError(reason) {}
};

/// An exception as a run-time error: itself when it is one, else 440 with its text.
[[nodiscard]] inline RunTimeError AsRunTimeError(const std::exception& error) {
  const auto* const known = dynamic_cast<const RunTimeError*>(&error);
  return known != nullptr ? *known : RunTimeError(error_number::kAutomation, error.what());
}

}  // namespace chartproject
