// A flag that handlers see while something is in progress.
#pragma once

namespace chartproject {

/// Sets a flag while it lives, and restores the former value.
class FlagScope {
 public:
  explicit FlagScope(bool& flag, bool value = true) : flag_(flag), before_(flag) { flag_ = value; }
  ~FlagScope() { flag_ = before_; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace chartproject
