// An activation context made from the manifest in the module's resources.
#include "backends/win32/widgets/themed_controls.h"

#include "backends/win32/com_module.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

HANDLE MakeContext() noexcept {
  ACTCTXW source{};
  source.cbSize = sizeof source;
  source.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  source.hModule = ThisModule();
  source.lpResourceName = MAKEINTRESOURCEW(2);  // the manifest of a DLL
  return CreateActCtxW(&source);
}

}  // namespace

ThemedControls::ThemedControls() noexcept : context_(MakeContext()) {
  active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_) != 0;
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC = ICC_STANDARD_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS | ICC_UPDOWN_CLASS;
  InitCommonControlsEx(&classes);
}

ThemedControls::~ThemedControls() {
  if (active_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

}  // namespace chartproject::win32
