// The in-memory ports.
#include "support/fake_ports.h"

#include "common/values/numbers.h"
#include "forms/form.h"

namespace chartproject {

std::optional<std::string> MemorySettings::Read(std::string_view section, std::string_view key) {
  const auto& keys = values[std::string(section)];
  const auto found = keys.find(std::string(key));
  return found == keys.end() ? std::nullopt : std::optional(found->second);
}

void MemorySettings::Write(std::string_view section, std::span<const StoredSetting> settings) {
  for (const StoredSetting& setting : settings) {
    values[std::string(section)][setting.key] = setting.value;
    written.push_back(std::string(section) + "." + setting.key);
  }
}

std::string FakeLocale::DateText(const DateTime& moment) const {
  return FormatDigits(moment.day, 2) + "/" + FormatDigits(moment.month, 2) + "/" + FormatDigits(moment.year, 4);
}

std::string FakeLocale::TimeText(const DateTime& moment) const {
  return std::to_string(moment.hour) + "h" + FormatDigits(moment.minute, 2) + "m" + FormatDigits(moment.second, 2);
}

std::int16_t FakeDialogs::ShowMessageBox(const MessageBoxRequest& request) {
  boxes.push_back(request);
  if (whileUp) whileUp(request);
  if (!answers.empty()) return std::exchange(answers, {answers.begin() + 1, answers.end()}).front();
  return (request.style & 0xF) == box_style::kYesNo ? box_answer::kNo : box_answer::kOk;
}

std::string FakeDialogs::ShowInputBox(const InputBoxRequest& request) {
  inputs.push_back(request);
  return inputAnswer;
}

std::optional<std::string> FakeDialogs::ShowOpenFile(const OpenFileRequest& request) {
  fileRequests.push_back(request);
  return fileAnswer;
}

std::unique_ptr<FormView> NotedFormHost::CreateView(Form& form) {
  class NotedView : public FormView {
   public:
    NotedView(NotedFormHost& host, Form& form, std::unique_ptr<FormView> view)
        : host_(host), form_(form), view_(std::move(view)) {}
    void ControlChanged(Control& control, Property property) override { view_->ControlChanged(control, property); }
    void FormChanged(FormProperty property) override {
      if (property == FormProperty::kLayout) Note("layout");
      if (property == FormProperty::kPlace) Note("place " + WholeText(form_.Left()) + " " + WholeText(form_.Top()));
      if (property == FormProperty::kMousePointer) Note("pointer " + std::to_string(static_cast<int>(form_.Pointer())));
    }
    void MoveFocus(Control& control) override {
      Note("focus " + control.Name());
      view_->MoveFocus(control);
    }
    void Show() override { Note("show"); }
    void Hide() override { Note("hide"); }

   private:
    static std::string WholeText(double twips) { return std::to_string(static_cast<int>(twips)); }
    void Note(const std::string& what) {
      if (host_.notes && (host_.noted.empty() || host_.noted.back() != what)) host_.noted.push_back(what);
    }

    NotedFormHost& host_;
    Form& form_;
    std::unique_ptr<FormView> view_;
  };
  return std::make_unique<NotedView>(*this, form, HeadlessFormHost::CreateView(form));
}

std::vector<std::string> FakeDialogs::TakePrompts() {
  std::vector<std::string> prompts;
  for (const MessageBoxRequest& box : boxes) prompts.push_back(box.prompt);
  boxes.clear();
  return prompts;
}

}  // namespace chartproject
