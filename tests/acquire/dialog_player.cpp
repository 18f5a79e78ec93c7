// Commands of sessions, and what they change beside the window.
#include "dialog_player.h"

#include <sstream>

#include "chart/live/live_chart_control.h"
#include "common/values/text.h"
#include "recording_answers.h"
#include "support/plain_measurer.h"
#include "support/typing.h"

namespace chartproject {

namespace {

/// Takes the first word off a line.
std::string TakeWord(std::string& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  const std::string word = line.substr(0, end);
  line.erase(0, std::min(end + 1, line.size()));
  return word;
}

/// "\n" in a step is a line end of a file.
std::string WithLineEnds(std::string text) {
  for (std::size_t at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at))
    text.replace(at, 2, "\r\n");
  return text;
}

/// A long file: "COUNT TEXT".
std::string Repeated(std::string text) {
  const int count = std::stoi(TakeWord(text));
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

/// Long files are known by their size, their first and their last lines.
std::string Shown(const std::string& bytes) {
  constexpr std::size_t kMost = 2500, kPart = 300;
  std::string text = bytes.size() <= kMost ? bytes
                                           : bytes.substr(0, kPart) + "\n... " + std::to_string(bytes.size()) +
                                                 " bytes ...\n" + bytes.substr(bytes.size() - kPart);
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  std::string lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines += "\n  | " + line;
  }
  return lines;
}

}  // namespace

void DialogPlayer::OpenDialog() {
  form.reset();
  form = std::make_unique<AcquireForm>(component);
  form->runEnded = [this](const RunReport& report) {
    heard_.push_back("run ended " + std::to_string(static_cast<int>(report.end)) + " with " +
                     std::to_string(report.points) + " points, written " +
                     std::to_string(static_cast<int>(report.written.kind)) + " with " +
                     std::to_string(report.written.rows) + " rows, kept in [" + report.written.keptFile + "], " +
                     report.written.reason + report.companionFailure);
  };
  form->controller.noticed = [this](const std::string& text) { heard_.push_back("noticed: " + text); };
  component.showChart = [this](Component&, const std::string& name) { heard_.push_back("chart shown: " + name); };
  component.chartRecorded = [this](Component&, const std::string& name) { heard_.push_back("recorded: " + name); };
  form->Load();
}

/// Where the layout puts every control in a window of some size, and what a back end asks of the controls.
void DialogPlayer::ShowPlaces(double width, double height) {
  const PlainMeasurer measurer;
  const LayoutBox box = form->Layout();
  const Size least = MinimumSize(box, measurer);
  std::ostringstream out;
  out << "least " << least.width << " x " << least.height;
  Arrange(box, {0, 0, std::max(width, least.width), std::max(height, least.height)}, measurer);
  for (const Control* control : form->Controls()) {
    const Rect& place = control->Place();
    out << '\n' << control->Name() << ": " << place.x << ' ' << place.y << ' ' << place.width << " x " << place.height;
    if (control->Container() != nullptr) out << " in " << control->Container()->Name();
    if (const auto* label = dynamic_cast<const Label*>(control)) {
      out << (label->WordWrap() ? " wraps" : "") << (label->Elided() ? " elided" : "") << " border "
          << label->BorderStyle();
    }
    if (const auto* field = dynamic_cast<const TextControl*>(control)) out << " of " << field->WidthInCharacters();
    if (const auto* list = dynamic_cast<const ComboBox*>(control)) out << (list->GreysItems() ? " greys" : "");
  }
  heard_.push_back(out.str());
}

void DialogPlayer::Pass(Instant duration) {
  const Instant end = fake.clock.Now() + duration;
  TimerQueue& timers = fake.forms.Timers();
  while (timers.NextDue() && *timers.NextDue() <= end) {
    fake.clock.AdvanceTo(*timers.NextDue());
    timers.FireOne();
  }
  fake.clock.AdvanceTo(end);
}

bool DialogPlayer::DoAsUser(const std::string& verb, const std::string& name, const std::string& value) {
  if (verb == "open") return OpenDialog(), true;
  Control* const control = form && !name.empty() ? form->Find(name) : nullptr;
  auto* const list = dynamic_cast<ComboBox*>(control);
  auto* const field = dynamic_cast<TextControl*>(control);
  auto* const button = dynamic_cast<CommandButton*>(control);
  if (verb == "choose" && list != nullptr) return Choose(*list, value), true;
  if (verb == "type" && field != nullptr) return TypeOver(*field, value), true;
  if (verb == "letters" && field != nullptr) return TypeLetters(*field, value), true;
  if (verb == "text" && field != nullptr) return field->SetText(value), true;
  if (verb == "press" && button != nullptr) return button->Press(), true;
  if (verb == "focus" && control != nullptr) return control->SetFocus(), true;
  if (verb == "leave" && control != nullptr) return control->LeaveFocus(), true;
  if (verb == "esc") return fake.keyboard.escape = true;
  if (verb == "close") return form->CloseByUser(), true;
  if (verb == "stop") return form->StopRun(), true;
  if (verb == "maximise") return form->StateChangedByUser(WindowState::kMaximized), true;
  if (verb == "places") return ShowPlaces(std::stod(name), std::stod(value)), true;
  if (verb == "move") return form->PlaceChangedByUser(std::stod(name), std::stod(value), 9000, form->Height()), true;
  return false;
}

bool DialogPlayer::DoOutside(const std::string& verb, const std::string& name, const std::string& value) {
  using std::chrono::milliseconds;
  const auto number = [](const std::string& text) { return text.empty() ? 0 : std::stoll(text); };
  if (verb == "run") return Pass(milliseconds(number(name))), true;
  if (verb == "drive") return plant.texts[static_cast<int>(number(name))] = value, true;
  if (verb == "silent") return plant.silent.insert(static_cast<int>(number(name))), true;
  if (verb == "answers") return plant.silent.clear(), plant.failAt.clear(), true;
  if (verb == "failure") return plant.failure = {static_cast<ReadFailure>(number(name)), value}, true;
  if (verb == "breaks") return plant.failAt = "read", true;
  if (verb == "slow") return plant.whileReading = [this, name, number] { Pass(milliseconds(number(name))); }, true;
  if (verb == "model") return component.driveTable.At(static_cast<int>(number(name))).Type = value, true;
  if (verb == "selected") return component.settings.intSelectedDrive = static_cast<std::int16_t>(number(name)), true;
  if (verb == "simulated") return plant.simulated = name != "no", component.driveLink = plant.Create({}), true;
  if (verb == "language") return component.language = static_cast<Language>(number(name)), true;
  if (verb == "windows") return fake.forms.showsWindows = true;
  if (verb == "comma") return fake.locale.UseComma(), true;
  if (verb == "curve") return component.makeLiveChart = MakeLiveChart, true;
  if (verb == "answer") return fake.dialogs.answers.push_back(static_cast<std::int16_t>(number(name))), true;
  if (verb == "browsed") return fake.dialogs.fileAnswer = name, true;
  if (verb == "prompted") return fake.dialogs.inputAnswer = name, true;
  if (verb == "stored") return fake.settings.values["frmAcquireVar"][name] = value, true;
  if (verb == "file") return fake.files.Put(name, WithLineEnds(value)), true;
  if (verb == "lines") return fake.files.Put(name, Repeated(WithLineEnds(value))), true;
  if (verb == "delete") return fake.files.Remove(name), true;
  if (verb == "cursor") return heard_.push_back(form->ButtonCursorFile()), true;
  if (verb == "folder") return fake.files.folders.insert(MemoryFileSystem::Key(name)).second;
  if (verb == "device") return fake.files.devices.insert(MemoryFileSystem::Key(name)).second;
  if (verb == "free") return fake.files.space.totalFree = static_cast<std::uint64_t>(number(name)), true;
  if (verb == "locked") return fake.files.locked.insert(MemoryFileSystem::Key(name)).second;
  if (verb == "mend") return fake.files.Mend(), true;
  if (!verb.starts_with("break-")) return false;
  fake.files.Break(verb.substr(6), static_cast<int>(number(name)), value);
  return true;
}

void DialogPlayer::Do(const std::string& command) {
  std::string rest = command;
  const std::string verb = TakeWord(rest);
  const std::string name = TakeWord(rest);
  if (DoAsUser(verb, name, rest) || DoOutside(verb, name, rest)) return;
  heard_.push_back(AnswerOn(fake, verb, name, rest));
  if (heard_.back().empty()) ADD_FAILURE() << "cannot do: " << command;
}

void DialogPlayer::LookAt(Transcript& transcript, const std::string& what, const std::string& now) {
  std::string& before = known_[what];
  if (before != now) transcript.Add(what + ": " + now);
  before = now;
}

void DialogPlayer::LookAtFiles(Transcript& transcript) {
  std::map<std::string, std::string> now;
  for (const char* folder : {"C:\\p", "/tmp", "C:\\b", "/profile"}) {
    for (const std::string& name : fake.files.FilesIn(folder)) {
      now["file " + JoinPath(folder, name)] = fake.files.Bytes(JoinPath(folder, name));
    }
  }
  for (auto& [name, bytes] : known_) {
    if (name.starts_with("file ") && !now.contains(name) && bytes != "(none)") transcript.Add(name + " is gone");
    if (name.starts_with("file ") && !now.contains(name)) bytes = "(none)";
  }
  for (const auto& [name, bytes] : now) {
    std::string& before = known_[name];
    const bool grows = !before.empty() && bytes.starts_with(before);
    const std::string text = fake.codePage.Decode(grows ? bytes.substr(before.size()) : bytes);
    if (bytes != before) transcript.Add(name + (grows ? " grows by" : " is") + Shown(text));
    before = bytes;
  }
}

void DialogPlayer::Look(Transcript& transcript) {
  if (form) transcript.Look(*form);
  for (const std::string& text : heard_) transcript.Add(text);
  heard_.clear();
  for (const InputBoxRequest& box : fake.dialogs.inputs) transcript.Add("asked: " + box.title + ": " + box.prompt);
  for (const OpenFileRequest& box : fake.dialogs.fileRequests) {
    transcript.Add("asked for a file: " + box.initialFolder + ", " + box.filter + " " +
                   std::to_string(box.filterIndex) + ", " + std::to_string(box.flags));
  }
  fake.dialogs.inputs.clear();
  fake.dialogs.fileRequests.clear();
  std::map<std::string, int> asked;
  for (const std::string& step : plant.steps) ++asked[step];
  plant.steps.clear();
  for (const auto& [step, count] : asked)
    transcript.Add("link: " + step + (count > 1 ? " x " + std::to_string(count) : ""));
  LookAt(transcript, "chart file name", component.strChartFileName);
  LookAt(transcript, "address, time, content",
         component.selectedDriveAddress + ", " + component.timeText + ", " + component.contentText);
  LookAt(transcript, "folder", fake.files.CurrentFolder());
  LookAt(transcript, "simulated recordings", std::to_string(component.simulatedRecordings.size()));
  LookAtFiles(transcript);
}

void DialogPlayer::Play(const std::string& name) {
  fake.forms.notes = true;
  Transcript transcript(name, &fake);
  for (const std::string& step : StepsOf(name)) {
    transcript.Step(step);
    std::size_t begin = 0;
    while (begin < step.size()) {
      const std::size_t end = std::min(step.find("; ", begin), step.size());
      Do(step.substr(begin, end - begin));
      begin = end + 2;
    }
    Look(transcript);
  }
  fake.files.Mend();
  form.reset();
}

}  // namespace chartproject
