// Forms without windows: the back end of the command line and of the tests.
#pragma once

#include <functional>
#include <memory>

#include "forms/form_host.h"

namespace chartproject {

/// Runs the timers; a script acts as the user.
class HeadlessFormHost : public FormHost {
 public:
  HeadlessFormHost(Clock& clock, WaitUntil waitUntil) : FormHost(clock), waitUntil_(std::move(waitUntil)) {}

  /// Called once for each form shown, when its modal loop begins: fill fields, press buttons.
  std::function<void(Form&)> onShown;
  /// Called while a form is shown and no timer is armed: there is nothing to wait for but the user. It must arm
  /// something or close the form; a form that it leaves idle is unloaded, for no user will ever come.
  std::function<void(Form&)> onIdle;
  /// Called after every tick: progress.
  std::function<void(Form&)> onTick;
  /// Called when long work lets the window live (progress, Esc).
  std::function<void()> onKeepAlive;
  /// Draws pictures, where a program brings something that can.
  PictureRenderer* pictures = nullptr;
  bool showsWindows = false;  ///< tests act as windows

  [[nodiscard]] std::unique_ptr<FormView> CreateView(Form& form) override;
  void RunModal(Form& form) override;
  [[nodiscard]] bool ShowsWindows() const noexcept override { return showsWindows; }
  [[nodiscard]] Size ScreenSize() const override { return {1280 * kTwipsPerPixel, 1024 * kTwipsPerPixel}; }
  [[nodiscard]] PictureRenderer* Pictures() noexcept override { return pictures; }
  void KeepAlive() override {
    if (onKeepAlive) onKeepAlive();
  }

 private:
  WaitUntil waitUntil_;
};

}  // namespace chartproject
