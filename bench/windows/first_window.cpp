// How long a host waits from creating the component to its first window. Usage: first_window CHART-FILE [ROUNDS]
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "backends/win32/windows_api.h"

#include <initguid.h>
#include <objbase.h>

#include <chart_project.h>

namespace {

using SteadyClock = std::chrono::steady_clock;

/// Waits until the chart window is visible, notes the moment and closes it.
void CloseWhenVisible(SteadyClock::time_point& seen) {
  HWND window = nullptr;
  while (window == nullptr || IsWindowVisible(window) == 0) {
    window = FindWindowW(L"ChartProjectForm", nullptr);
    std::this_thread::yield();
  }
  seen = SteadyClock::now();
  PostMessageW(window, WM_CLOSE, 0, 0);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const int rounds = count > 2 ? std::atoi(arguments[2]) : 11;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  wchar_t file[MAX_PATH];
  MultiByteToWideChar(CP_ACP, 0, arguments[1], -1, file, MAX_PATH);
  BSTR name = SysAllocString(file);
  std::vector<double> waits;
  for (int round = 0; round < rounds; ++round) {
    SteadyClock::time_point seen;
    const auto begun = SteadyClock::now();
    std::thread watcher(CloseWhenVisible, std::ref(seen));
    _ChartClass* component = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ChartClass, nullptr, CLSCTX_INPROC_SERVER, IID__ChartClass,
                                reinterpret_cast<void**>(&component)))) {
      std::puts("the component is not registered");
      std::exit(1);
    }
    component->CreateChart(name);
    watcher.join();
    component->Release();
    waits.push_back(std::chrono::duration<double, std::milli>(seen - begun).count());
    if (round == 0) std::printf("first in the process: %.0f ms\n", waits.back());
  }
  std::sort(waits.begin(), waits.end());
  std::printf("median of %d: %.0f ms, slowest %.0f ms\n", rounds, waits[waits.size() / 2], waits.back());
  SysFreeString(name);
  CoUninitialize();
  return 0;
}
