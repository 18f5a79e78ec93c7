// A user at a form's window: real keys and mouse clicks through the X server, each sent once the window is ready for
// it.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"

class QWidget;

namespace chartproject {

class User {
 public:
  explicit User(Form& form) : form_(form) {}

  /// Adds a step that waits for a condition.
  User& Until(std::string what, std::function<bool()> condition);
  /// Gives the step before an action, done once its condition holds.
  User& Then(std::function<void()> action);
  /// Steps for a window that has the focus and nothing else to do.
  User& Do(std::function<void()> action) { return Until("the window", Ready()).Then(std::move(action)); }
  User& Key(const std::string& key);
  User& Type(const std::string& text);
  User& Click(Control& control);

  /// Shows the form and goes through the steps until it is closed. A step that takes too long is a failure, and closes
  /// the form.
  void GoThrough();

  [[nodiscard]] QWidget& WidgetOf(Control& control) const;
  [[nodiscard]] QWidget& Window() const;

 private:
  struct Step {
    std::string what;
    std::function<bool()> condition;
    std::function<void()> action;
  };
  std::function<bool()> Ready() const;
  void Poll();
  void GiveUp();

  Form& form_;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  QTimer poll_;
  std::chrono::steady_clock::time_point deadline_;
};

/// Keys as xdotool names them ("Tab", "alt+s"), to the window that has the focus.
void SendKey(const std::string& key);

}  // namespace chartproject
