// Forms of any captions and any shape.
#include <cmath>

#include "bytes_file.h"
#include "common/values/text.h"
#include "forms/access_keys.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/layout.h"
#include "support/fake_ports.h"
#include "targets.h"

namespace chartproject::fuzz {

namespace {

/// Sizes that follow the captions.
struct Measurer : ControlMeasurer {
  Size PreferredSize(const Control& control) const override { return {8.0 * control.Caption().size(), 20}; }
  double HeightForWidth(const Control& control, double width) const override {
    return 20 * (1 + 8.0 * control.Caption().size() / std::max(width, 8.0));
  }
  Insets ContainerInsets(const Control& /*container*/) const override { return {8, 16, 8, 8}; }
};

struct AnyForm : Form {
  explicit AnyForm(FormHost& host) : Form(host, "frmAny", {}) {}
  Control& Add(std::string caption) {
    controls.push_back(std::make_unique<CommandButton>(*this, "cmd" + std::to_string(controls.size())));
    controls.back()->SetCaption(std::move(caption));
    return *controls.back();
  }
  std::vector<std::unique_ptr<Control>> controls;
};

}  // namespace

void AccessKeys(std::string_view bytes) {
  FakePorts fakes;
  AnyForm form(fakes.forms);
  for (std::string& line : Lines(bytes.substr(0, 2000))) form.Add(std::move(line));
  std::string given;
  for (const auto& [control, caption] : CaptionsWithAccessKeys(form)) {
    const auto letter = AccessLetter(caption);
    Require(letter.has_value());
    // Only captions that have their letter already may share one.
    if (AccessLetter(control->Caption())) continue;
    Require(given.find(*letter) == std::string::npos);
    given += *letter;
  }
}

void Layout(std::string_view bytes) {
  FakePorts fakes;
  AnyForm form(fakes.forms);
  std::vector<LayoutBox> boxes;
  for (const char byte : bytes.substr(0, 200)) {
    const auto value = static_cast<unsigned char>(byte);
    if (value < 128 || boxes.empty()) {
      Control& control = form.Add(std::string(value % 64, 'x'));
      control.SetVisible(value % 5 != 0);
      boxes.push_back(Cell(control, value % 3, value % 2));
    } else if (value < 192) {
      std::vector<LayoutBox> children = std::move(boxes);
      boxes.clear();
      const int kind = value % 4;
      boxes.push_back(kind == 0   ? Row(std::move(children))
                      : kind == 1 ? Column(std::move(children))
                      : kind == 2 ? Grid(1 + value % 5, std::move(children))
                                  : Stack(std::move(children)));
    } else {
      LayoutBox box = std::move(boxes.back());
      boxes.back() = value % 3 == 0   ? Aligned(1 + value % 2, std::move(box))
                     : value % 3 == 1 ? Collapsing(std::move(box))
                                      : AtLeast(std::move(box), value, value % 50);
    }
  }
  const Measurer measurer;
  const LayoutBox root = Column(std::move(boxes));
  const Size least = MinimumSize(root, measurer);
  Arrange(root, {0, 0, least.width + 50, least.height + 50}, measurer);
  for (const auto& control : form.controls) {
    const Rect place = control->Place();
    Require(std::isfinite(place.x + place.y + place.width + place.height) && place.x >= 0 && place.y >= 0);
    Require(!control->Visible() || place.x + place.width <= least.width + 50.5);
  }
}

}  // namespace chartproject::fuzz
