// The start window and the chart window, each with a user, over projects in memory.
#pragma once

#include <memory>
#include <string>

#include "chart/window/chart_form.h"
#include "host/project/project_maker.h"
#include "host/window/start_form.h"
#include "links/simulated_link.h"
#include "qt/dialog_window.h"

namespace chartproject {

/// The start window over a project that was just made.
struct StartWindow {
  explicit StartWindow(const std::string& language = "English") : outside(language) {}

  DialogWindow outside;
  SimulatedLinkFactory links{outside.clock, outside.fakes.locale};
  ProjectReport made =
      MakeProject(outside.fakes.files, outside.fakes.settings, outside.fakes.codePage, "/home/Project");
  ProcessState process;
  std::unique_ptr<Component> shared = process.NewState(outside.ports, outside.host, links);
  ChartClass instance{*shared, process};
  ChosenLinks chosen{"sim",
                     {outside.fakes.files,
                      outside.fakes.settings,
                      outside.clock,
                      [](Instant) {},
                      outside.fakes.locale,
                      [] { return Language::kEnglish; },
                      {},
                      true}};
  StartForm form{instance, made.folder, {chosen, [] { return std::vector<SerialPort>(); }, {}}};
  User user{form};
};

/// The chart window over a file of 40,000 points of the plant's first drive.
struct ChartViewer {
  explicit ChartViewer(const std::string& language);
  void Close();

  static constexpr int kPoints = 40000;
  DialogWindow outside;
  ChartForm form{outside.component};
  User user{form};
};

}  // namespace chartproject
