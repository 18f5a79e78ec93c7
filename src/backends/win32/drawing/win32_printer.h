// Pages on the system's default printer, by GDI, in centimetres.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "backends/win32/handles.h"
#include "platform/printer.h"

namespace chartproject::win32 {

class Win32Printer : public Printer {
 public:
  /// Asks for a file's name, given a proposal; nothing when the user names none.
  using AskForFile = std::function<std::optional<std::string>(const std::string& proposal)>;

  /// @param askForFile for a printer that makes a file, in place of its own question, which proposes no name
  /// @param printTo file that takes the printer's data; empty: the printer itself
  explicit Win32Printer(AskForFile askForFile = {}, std::wstring printTo = {})
      : askForFile_(std::move(askForFile)), printTo_(std::move(printTo)) {}
  void ProposeFile(const std::string& fileName) override { proposal_ = fileName; }
  /// False when the user named no file for a printer that makes one.
  [[nodiscard]] bool StartDocument(const std::string& title) override;
  [[nodiscard]] PageArea Page() const override;
  [[nodiscard]] double TextWidth(std::string_view text, const PrintFont& font) const override;
  void PrintText(std::string_view text, double x, double y, const PrintFont& font) override;
  [[nodiscard]] double CurrentY() const override { return y_; }
  void NextLine() override;
  void PaintPicture(const Bitmap& picture, double x, double y, double width, double height) override;
  void PaintPictureFile(const std::string& fileName, double x, double y) override;
  void Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) override;
  void NextPage() override;
  void EndDocument() override;
  void AbandonDocument() noexcept override;

 private:
  [[nodiscard]] HDC Require() const;
  [[nodiscard]] double Centimetres(int capability, int resolution) const;
  [[nodiscard]] int DotsX(double centimetres) const;
  [[nodiscard]] int DotsY(double centimetres) const;
  [[nodiscard]] OwnedFont MakeFont(const PrintFont& font) const;

  AskForFile askForFile_;
  std::wstring printTo_;
  std::string proposal_;  ///< name for a printer that makes a file
  std::string name_;      ///< of the printer, and of the file that replaces it
  OwnedDc printer_;
  double y_ = 0;
  double lineHeight_ = 0;  ///< of the last font
};

}  // namespace chartproject::win32
