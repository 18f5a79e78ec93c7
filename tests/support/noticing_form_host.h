// Forms without windows that note what their windows would be told beside the controls' values: what is painted again,
// which control has the focus, where the window goes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "backends/headless/headless_form_host.h"

namespace chartproject {

class NoticingFormHost : public HeadlessFormHost {
 public:
  using HeadlessFormHost::HeadlessFormHost;

  bool notes = false;
  std::vector<std::string> noted;  ///< "layout frmOne", "pointer 11", "focus cmdOne"; the same twice in a row is one

  [[nodiscard]] std::unique_ptr<FormView> CreateView(Form& form) override {
    return std::make_unique<NoticingView>(HeadlessFormHost::CreateView(form), form, *this);
  }

 private:
  class NoticingView : public FormView {
   public:
    NoticingView(std::unique_ptr<FormView> view, const Form& form, NoticingFormHost& host)
        : view_(std::move(view)), form_(form), host_(host) {}
    void ControlChanged(Control& control, Property property) override {
      if (property == Property::kContent) Note("paint " + control.Name());
      if (property == Property::kOverlay) Note("overlay " + control.Name());
      view_->ControlChanged(control, property);
    }
    void FormChanged(FormProperty property) override {
      if (property == FormProperty::kLayout) Note("layout " + form_.Name());
      if (property == FormProperty::kPlace) Note("place " + WholeText(form_.Left()) + " " + WholeText(form_.Top()));
      if (property == FormProperty::kMousePointer) Note("pointer " + std::to_string(static_cast<int>(form_.Pointer())));
      view_->FormChanged(property);
    }
    void MoveFocus(Control& control) override {
      Note("focus " + control.Name());
      view_->MoveFocus(control);
    }
    void Show() override {
      Note("show");
      view_->Show();
    }
    void Hide() override {
      Note("hide");
      view_->Hide();
    }

   private:
    static std::string WholeText(double twips) { return std::to_string(static_cast<int>(twips)); }
    void Note(const std::string& what) {
      if (host_.notes && (host_.noted.empty() || host_.noted.back() != what)) host_.noted.push_back(what);
    }

    std::unique_ptr<FormView> view_;
    const Form& form_;
    NoticingFormHost& host_;
  };
};

}  // namespace chartproject
