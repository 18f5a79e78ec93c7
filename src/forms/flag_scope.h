// A flag that handlers see while something is going on.
#pragma once

namespace chartproject {

/// Gives a flag a value while it lives, and the former one back.
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
