// One program for most targets: the name that it is called by, for example "driver_fuzz", chooses one.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "targets.h"

namespace {

using namespace chartproject;

struct Target {
  std::string_view name;
  void (*feed)(std::string_view);
};
constexpr Target kTargets[] = {{"drive", fuzz::Drive},
                               {"driver", fuzz::Driver},
                               {"scenario", fuzz::Scenario},
                               {"companion", fuzz::CompanionFile},
                               {"position", fuzz::Position},
                               {"settings", fuzz::Settings},
                               {"number", fuzz::Number},
                               {"journal", fuzz::Journal},
                               {"overview", fuzz::Overview},
                               {"visible", fuzz::Visible},
                               {"access_keys", fuzz::AccessKeys},
                               {"layout", fuzz::Layout},
                               {"csv", fuzz::Csv},
                               {"xls", fuzz::Xls},
                               {"xlsx", fuzz::Xlsx},
                               {"plain", fuzz::Plain}};

const Target* chosen = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** arguments) {
  std::string name = **arguments;
  name = name.substr(name.rfind('/') + 1);
  for (const Target& target : kTargets) {
    if (name == std::string(target.name) + "_fuzz") chosen = &target;
  }
  if (chosen == nullptr) {
    std::fprintf(stderr, "no target is called %s\n", name.c_str());
    std::exit(2);
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  chosen->feed({reinterpret_cast<const char*>(data), size});
  return 0;
}
