// Ports of a program without windows: absent devices, and a clipboard within the program.
#pragma once

#include <optional>

#include "platform/clipboard.h"
#include "platform/help.h"
#include "platform/printer.h"
#include "platform/sound.h"

namespace chartproject {

/// No wave output device.
class SilentSound : public Sound {
 public:
  [[nodiscard]] unsigned OutputDeviceCount() override { return 0; }
  void Play(const std::string& /*fileName*/, std::uint32_t /*flags*/) override {}
};

/// Without windows nobody reads help.
class NoHelp : public Help {
 public:
  void ShowContext(const std::string& /*helpFile*/, std::int32_t /*context*/) override {}
};

/// A clipboard that only this process sees.
class ProcessClipboard : public Clipboard {
 public:
  void Clear() override {
    picture_.reset();
    text_.clear();
  }
  void SetPicture(const Bitmap& picture) override {
    Clear();
    picture_ = picture;
  }
  void SetText(const std::string& text) override {
    Clear();
    text_ = text;
  }
  [[nodiscard]] std::optional<Bitmap> Picture() override { return picture_; }
  [[nodiscard]] const std::string& Text() const noexcept { return text_; }

 private:
  std::optional<Bitmap> picture_;
  std::string text_;
};

/// Every operation throws RunTimeError 482.
class NoPrinter : public Printer {
 public:
  [[nodiscard]] bool StartDocument(const std::string& title) override;
  [[nodiscard]] PageArea Page() const override;
  [[nodiscard]] double TextWidth(std::string_view text, const PrintFont& font) const override;
  void PrintText(std::string_view text, double x, double y, const PrintFont& font) override;
  [[nodiscard]] double CurrentY() const override;
  void NextLine() override;
  void PaintPicture(const Bitmap& picture, double x, double y, double width, double height) override;
  void PaintPictureFile(const std::string& fileName, double x, double y) override;
  void Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) override;
  void NextPage() override;
  void EndDocument() override;
  void AbandonDocument() noexcept override {}
};

}  // namespace chartproject
