// render FILE --output PNG: the chart of a slice as a picture file, drawn without a display.
#include "backends/posix/files/part_file.h"
#include "chart/picture/chart_scene.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/arguments/interrupted_argument.h"
#include "host/reports/chart_picture.h"
#include "host/session/png_file.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

constexpr int kLeastSide = 100;
constexpr int kMostSide = 8192;

class RenderCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("render", "Draw the chart of a chart file into a PNG file");
    app->add_option("FILE", file_, "chart file")->type_name("")->required();
    app->add_option("--output", output_, "picture file to write")->type_name("PNG")->required();
    options_.AddTo(*app);
    app->add_option("--size", size_, "width and height in pixels")->type_name("WIDTHxHEIGHT")->capture_default_str();
    return app;
  }

  ExitCode Run(Session& session) override {
    const ChartPictureOptions::Choice choice = options_.Parse();
    const Size size = ParseSize();
    const std::string chartFile = FullName(file_);
    const std::string output = FullName(output_);
    RefuseInterrupted(session.ThePorts(), chartFile);
    RefuseOutputOnto(chartFile, output);
    RefuseOutputOntoRecording(session.ThePorts(), output);
    PictureRenderer& renderer = *session.UseDesktop(DesktopMode::kOffscreen).Forms().Pictures();
    Ports& ports = session.ThePorts();
    ChartHeader header;
    ChartView view(ports, header);
    LoadChosenSlice(view, chartFile, choice, session.Instance().State().language);
    if (choice.look.lanes || choice.look.legend) NameSeriesIfKnown(view, session.Instance().State());
    const std::string png = PngBytes(DrawPicture(view.Model(choice.look), ports.locale.Numbers(), size, 1, renderer));
    // A picture that had the name is there until the new one is complete.
    PartFile part(output);
    const auto file = part.OpenForWriting();
    file->Write(png);
    file->FlushAndClose();
    part.Commit();
    return ExitCode::kDone;
  }

 private:
  [[nodiscard]] Size ParseSize() const {
    const std::size_t by = size_.find('x');
    if (by == std::string::npos) throw RefusedError("--size: width and height, for example 1280x720");
    return {static_cast<double>(ParseNumber(size_.substr(0, by), "--size", kLeastSide, kMostSide)),
            static_cast<double>(ParseNumber(size_.substr(by + 1), "--size", kLeastSide, kMostSide))};
  }

  std::string file_;
  std::string output_;
  std::string size_ = "1280x720";
  ChartPictureOptions options_;
};

}  // namespace

std::unique_ptr<Command> MakeRenderCommand() {
  return std::make_unique<RenderCommand>();
}

}  // namespace chartproject
