// Names of controls for programs that read the screen out.
#pragma once

#include <memory>

#include "backends/win32/forms/form_widgets.h"

struct IAccPropServices;

namespace chartproject::win32 {

/// Windows that have no text of their own get their name by the system's annotations; where the system has none of
/// these (they need no more than a COM apartment) such a program takes the label before a field.
class AccessibleNames {
 public:
  AccessibleNames();
  ~AccessibleNames();
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;

  /// Names all controls of a form anew.
  void Show(const FormWidgets& widgets) const;
  /// Names one; a name that changed is reported to the programs that listen.
  void Show(const Widget& widget) const;

 private:
  struct Release {
    void operator()(IAccPropServices* services) const noexcept;
  };
  std::unique_ptr<IAccPropServices, Release> services_;
};

}  // namespace chartproject::win32
