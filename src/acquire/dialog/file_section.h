// The chart file of the dialog: its name, typed, browsed for or asked for.
#pragma once

#include <optional>

#include "acquire/dialog/section.h"

namespace chartproject {

class RunTimeError;
struct OpenFileRequest;

/// How the file got its name.
enum class NamedBy {
  kTyping,  ///< letter by letter: the focus stays in the field
  kChoice,  ///< at once: browsed for, asked for, or named by the program
};

class FileSection : public Section {
 public:
  /// @param named called after each new name
  FileSection(Form& form, Component& component, std::function<void(NamedBy)> named);

  Frame fraFileName{form_, "fraFileName"};
  RichTextBox rtfFileName{form_, "rtfFileName"};
  CommandButton cmdNewFile{form_, "cmdNewFile"};
  CommandButton cmdBrowse{form_, "cmdBrowse"};

  /// Captions and tool tips that hold no message number, in the user's language.
  void Translate();
  [[nodiscard]] LayoutBox Layout();
  [[nodiscard]] const std::string& Name() const noexcept { return rtfFileName.Text(); }
  /// Gives the file a name as a choice does.
  void NameFile(const std::string& fileName);
  [[nodiscard]] bool Exists() const;
  /// The name with its folder: the current folder may be another one while the file is written.
  [[nodiscard]] std::string FullName() const;
  /// Notes when the file that is there was recorded.
  void NoteRecording();
  /// What a start does to an existing file, and the folder of a name without one; empty otherwise.
  [[nodiscard]] std::string TargetNote() const;
  /// Shows what keeps the file from being read or written as a plain sentence. @param right the text of a missing right
  void WarnOf(const RunTimeError& error, Text right) const;
  /// True when the disk of the file has room for some bytes besides the reserve; otherwise says so in a box, but not
  /// while the name is being typed.
  [[nodiscard]] bool HasRoomFor(double bytes) const;
  /// The hint that keeps Start away, if any.
  [[nodiscard]] std::optional<std::string> Missing() const;

 private:
  void rtfFileName_Change();
  void cmdBrowse_Click();
  void PromptFileName();
  void ConfigureFileDialog(OpenFileRequest& request, const std::string& extension) const;

  std::function<void(NamedBy)> named_;
  /// Date and time of the recording that is there, empty where they are not known; nothing for another file.
  std::optional<std::string> recordedAt_;
  bool naming_ = false;  ///< a choice fills the field, and reacts to it itself
  bool typing_ = false;
};

}  // namespace chartproject
