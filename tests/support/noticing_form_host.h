// Forms without windows that notice what a window would be told: which control has the focus, what is painted again.
#pragma once

#include <memory>
#include <set>
#include <string>

#include "backends/headless/headless_form_host.h"

namespace chartproject {

class NoticingFormHost : public HeadlessFormHost {
 public:
  using HeadlessFormHost::HeadlessFormHost;
  std::set<std::string> noticed;  ///< "focus NAME", "paint NAME", "overlay NAME", "layout FORM"; tests empty it

  [[nodiscard]] std::unique_ptr<FormView> CreateView(Form& form) override {
    return std::make_unique<NoticingView>(HeadlessFormHost::CreateView(form), form, noticed);
  }

 private:
  class NoticingView : public FormView {
   public:
    NoticingView(std::unique_ptr<FormView> view, const Form& form, std::set<std::string>& noticed)
        : view_(std::move(view)), form_(form), noticed_(noticed) {}
    void ControlChanged(Control& control, Property property) override {
      if (property == Property::kContent) noticed_.insert("paint " + control.Name());
      if (property == Property::kOverlay) noticed_.insert("overlay " + control.Name());
      view_->ControlChanged(control, property);
    }
    void FormChanged(FormProperty property) override {
      if (property == FormProperty::kLayout) noticed_.insert("layout " + form_.Name());
      view_->FormChanged(property);
    }
    void MoveFocus(Control& control) override {
      noticed_.insert("focus " + control.Name());
      view_->MoveFocus(control);
    }
    void Show() override { view_->Show(); }
    void Hide() override { view_->Hide(); }

   private:
    std::unique_ptr<FormView> view_;
    const Form& form_;
    std::set<std::string>& noticed_;
  };
};

}  // namespace chartproject
