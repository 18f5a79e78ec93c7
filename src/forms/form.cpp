// The life of a form and the boundary of its handlers.
#include "forms/form.h"

#include <utility>

#include "forms/form_host.h"

namespace chartproject {

Form::Form(FormHost& host, std::string name, HandlerErrorReporter reporter)
    : host_(host), name_(std::move(name)), reporter_(std::move(reporter)) {}

Form::~Form() = default;

void Form::Load() {
  if (loaded_) return;
  view_ = host_.CreateView(*this);
  loaded_ = true;
  RunHandler("Form_Load", [this] { OnLoad(); });
  Notify(FormProperty::kLayout);
}

void Form::ShowModal() {
  Load();
  if (!loaded_) return;  // the load handler changed its mind
  shown_ = true;
  view_->Show();
  RunHandler("Form_Activate", [this] { OnActivate(); });
  if (shown_) host_.RunModal(*this);
}

void Form::ShowStatus() {
  Load();
  shown_ = true;
  view_->Show();
  host_.KeepAlive();
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  view_->Hide();
}

void Form::Unload() {
  if (!loaded_ || unloading_) return;
  unloading_ = true;
  RunHandler("Form_Unload", [this] { OnUnload(); });
  Hide();
  loaded_ = false;
  unloading_ = false;
}

void Form::CloseByUser() {
  bool close = true;
  RunHandler("Form_QueryUnload", [this, &close] { close = OnQueryClose(); });
  if (close) Unload();
}

void Form::RunHandler(const std::string& routine, const std::function<void()>& handler) noexcept {
  try {
    try {
      handler();
    } catch (const std::exception& error) {
      reporter_(routine, AsRunTimeError(error));
    }
  } catch (...) {
    // The reporter is the last resort: an error that it cannot show is lost.
    return;
  }
}

void Form::SetCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Notify(FormProperty::kCaption);
}

void Form::SetIconFile(std::string fileName) {
  iconFile_ = std::move(fileName);
  Notify(FormProperty::kIcon);
}

void Form::SetPointer(MousePointer pointer) {
  if (pointer_ == pointer) return;
  pointer_ = pointer;
  Notify(FormProperty::kMousePointer);
}

void Form::SetLeft(double twips) {
  left_ = twips;
  Notify(FormProperty::kPlace);
}

void Form::SetTop(double twips) {
  top_ = twips;
  Notify(FormProperty::kPlace);
}

void Form::SetHeight(double twips) {
  if (height_ == twips) return;
  height_ = twips;
  Notify(FormProperty::kHeight);
}

void Form::PlaceChangedByUser(double left, double top, double width, double height) noexcept {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
}

void Form::SetState(WindowState state) {
  if (state_ == state) return;
  state_ = state;
  Notify(FormProperty::kWindowState);
}

Control* Form::Find(std::string_view name) const noexcept {
  for (Control* control : controls_) {
    if (control->Name() == name) return control;
  }
  return nullptr;
}

void Form::SetLayout(LayoutBox layout) {
  layout_ = std::move(layout);
  Notify(FormProperty::kLayout);
}

void Form::LayoutChanged() {
  Notify(FormProperty::kLayout);
}

void Form::Notify(FormProperty property) {
  if (view_) view_->FormChanged(property);
}

HourglassScope::HourglassScope(Form& form) : form_(form), before_(form.Pointer()) {
  form_.SetPointer(MousePointer::kHourglass);
}

HourglassScope::~HourglassScope() {
  form_.SetPointer(before_);
}

}  // namespace chartproject
