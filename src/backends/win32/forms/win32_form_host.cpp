// The modal loop, and the ticks inside the loops of others.
#include "backends/win32/forms/win32_form_host.h"

#include <algorithm>

#include "backends/win32/com_module.h"
#include "backends/win32/forms/win32_form_view.h"
#include "forms/flag_scope.h"
#include "forms/form.h"

#include <mmsystem.h>

namespace chartproject::win32 {

namespace {

constexpr UINT_PTR kPumpTimer = 1;

/// Timers of the system to the millisecond while a form is up.
class PreciseTimers {
 public:
  PreciseTimers() { Call("timeBeginPeriod"); }
  ~PreciseTimers() { Call("timeEndPeriod"); }
  PreciseTimers(const PreciseTimers&) = delete;
  PreciseTimers& operator=(const PreciseTimers&) = delete;

 private:
  static void Call(const char* function) noexcept {
    static const HMODULE timers = LoadSystemLibrary(L"winmm.dll");
    const FARPROC found = timers == nullptr ? nullptr : GetProcAddress(timers, function);
    if (found != nullptr) reinterpret_cast<decltype(&timeBeginPeriod)>(reinterpret_cast<void*>(found))(1);
  }
};

/// A form in the list of those whose loop runs.
class RunningForm {
 public:
  RunningForm(std::vector<Form*>& running, Form& form) : running_(running) { running_.push_back(&form); }
  ~RunningForm() { running_.pop_back(); }
  RunningForm(const RunningForm&) = delete;
  RunningForm& operator=(const RunningForm&) = delete;

 private:
  std::vector<Form*>& running_;
};

/// Milliseconds until a moment, rounded up: a tick is never early.
DWORD MillisecondsUntil(Instant due, Instant now) {
  if (due <= now) return 0;
  const auto left = (due - now + std::chrono::microseconds(999)) / std::chrono::milliseconds(1);
  return static_cast<DWORD>(std::min<decltype(left)>(left, 0x7FFFFFFF));
}

/// A key or a click, apart from those that close a window.
bool IsLockedOut(const MSG& message) {
  if (message.message == WM_NCLBUTTONDOWN) return message.wParam != HTCLOSE;
  if (message.message == WM_SYSKEYDOWN || message.message == WM_SYSKEYUP) return message.wParam != VK_F4;
  return (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
         (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) ||
         (message.message > WM_NCLBUTTONDOWN && message.message <= WM_NCMBUTTONDBLCLK);
}

}  // namespace

Win32FormHost::Win32FormHost(Clock& clock, const Win32Keyboard& keyboard, VirtualClock* virtualClock)
    : FormHost(clock),
      clock_(clock),
      keyboard_(keyboard),
      virtualClock_(virtualClock),
      classes_(Win32FormView::FormProcedure) {
  pump_ = OwnedWindow(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  SetWindowLongPtrW(pump_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(pump_.Get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PumpProcedure));
}

std::unique_ptr<FormView> Win32FormHost::CreateView(Form& form) {
  return std::make_unique<Win32FormView>(form, *this);
}

Size Win32FormHost::ScreenSize() const {
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  const double twips = kTwipsPerPixel / SystemScale();
  return {(area.right - area.left) * twips, (area.bottom - area.top) * twips};
}

LRESULT CALLBACK Win32FormHost::PumpProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept {
  if (message != WM_TIMER) return DefWindowProcW(window, message, word, data);
  auto* host = reinterpret_cast<Win32FormHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  try {
    // The virtual clock stops while a box is open: only our own loop moves it.
    if (host != nullptr && host->ticking_ && host->virtualClock_ == nullptr) {
      host->FireDue();
      host->TimersChanged();
    }
  } catch (...) {
    return 0;  // handlers report their own errors; nothing else is left to report here
  }
  return 0;
}

void Win32FormHost::TimersChanged() {
  const auto due = Timers().NextDue();
  if (!due) {
    KillTimer(pump_.Get(), kPumpTimer);
    return;
  }
  SetTimer(pump_.Get(), kPumpTimer, std::max<DWORD>(1, MillisecondsUntil(*due, clock_.Now())), nullptr);
}

bool Win32FormHost::FireDue() {
  bool fired = false;
  while (ticking_ && Timers().FireOne()) fired = true;
  return fired;
}

void Win32FormHost::Wait() {
  const auto due = Timers().NextDue();
  if (due && virtualClock_ != nullptr) {
    virtualClock_->AdvanceTo(*due);
    return;
  }
  const DWORD milliseconds = due ? MillisecondsUntil(*due, clock_.Now()) : INFINITE;
  MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

/// False when the thread is asked to end.
bool Win32FormHost::Dispatch(MSG& message) {
  if (message.message == WM_QUIT) {
    PostQuitMessage(static_cast<int>(message.wParam));  // the host's own loop has to see it too
    return false;
  }
  if (Win32FormView::Translate(message)) return true;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

void Win32FormHost::RunModal(Form& form) {
  const PreciseTimers precise;
  const RunningForm running(running_, form);
  while (form.IsShown()) {
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      if (!Dispatch(message)) {
        form.Unload();
        return;
      }
    } else if (form.IsShown() && !FireDue()) {  // a sent message is handled within the call and not counted
      Wait();
    }
    if (form.IsShown() && virtualClock_ == nullptr) FireDue();  // a flood of messages delays no tick
  }
}

void Win32FormHost::EndSession() {
  // Their loops end when this message is over.
  for (std::size_t left = running_.size(); left > 0; --left) {
    running_[left - 1]->CloseByUser();
    running_[left - 1]->Unload();  // even when it cannot be closed now: the session ends
  }
}

void Win32FormHost::KeepAlive() {
  const FlagScope pause(ticking_, false);
  MSG message;
  // A bounded number: a window that is never quiet must not stop the work.
  for (int count = 0; count < 200 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_NOYIELD) != 0; ++count) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    // Keys and clicks made meanwhile would act on a form that is not ready for them; Esc is asked for by its state.
    if (!IsLockedOut(message)) DispatchMessageW(&message);
  }
}

}  // namespace chartproject::win32
