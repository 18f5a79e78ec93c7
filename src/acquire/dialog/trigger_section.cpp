// What starts a recording: the user's key, or an event at the drive.
#include "acquire/dialog/trigger_section.h"

#include "acquire/dialog/input_rules.h"
#include "common/message_box.h"
#include "common/values/numbers.h"

namespace chartproject {

namespace {

constexpr int kNothing = -1;
constexpr std::int32_t kHelpContext = 91;

}  // namespace

TriggerSection::TriggerSection(Form& form, Component& component, const DriveSection& drive,
                               std::function<void()> changed)
    : Section(form, component, std::move(changed)), drive_(drive) {
  lblTriggerMode.SetTag(TextNumber(Text::kTriggerMode));
  lblEvent.SetTag(TextNumber(Text::kEvent));
  lblPXXX.SetTag(TextNumber(Text::kParameter));
  lblContent.SetTag(TextNumber(Text::kContent));
  lblPXXXName.SetElided(true);
  cboEvent.SetGreysItems(true);
  Connect(cboTriggerMode.click, cboTriggerMode, "Click", this, &TriggerSection::cboTriggerMode_Click);
  Connect(cboEvent.click, cboEvent, "Click", this, &TriggerSection::cboEvent_Click);
  Connect(cboPXXX.click, cboPXXX, "Click", this, &TriggerSection::cboPXXX_Click);
  Connect(txtContent.change, txtContent, "Change", this, &TriggerSection::txtContent_Change);
}

LayoutBox TriggerSection::Layout() {
  return Group(picMode, Column({Row({LineStart(lblTriggerMode), Cell(cboTriggerMode), Space()}),
                                Row({LineStart(lblEvent), Cell(cboEvent, 1)}),
                                Row({LineStart(lblPXXX), Cell(cboPXXX), Cell(lblContent), Cell(txtContent), Space()}),
                                Row({LineStart(), Cell(lblPXXXName, 1)})}));
}

void TriggerSection::Reset() {
  FillEventList();
  SetContent("0");
  FillTriggerModeList();
}

void TriggerSection::ShowHeader(const ChartHeader& header) {
  SelectItem(cboTriggerMode, TriggerModeText(component_, header.TriggerMode));
  SelectItem(cboEvent, EventText(component_, header.Event));
  SelectItem(cboPXXX, header.PXXX);
  SetContent(header.Content);
}

void TriggerSection::FillHeader(ChartHeader& header) const {
  if (const auto mode = Mode()) header.TriggerMode = TriggerModeCode(*mode);
  header.Event = EventCode(ChosenEvent());
  header.PXXX = cboPXXX.Text();
  header.Content = txtContent.Text();
}

void TriggerSection::ListParameters(std::optional<std::int16_t> driveAddress) {
  MarkAvailableEvents();
  if (!driveAddress) {
    cboPXXX.Clear();
    ShowParameterName(component_, cboPXXX, lblPXXXName);
    return;
  }
  FillParameterList(component_, *driveAddress, cboPXXX);
  if (cboEvent.Enabled()) cboEvent_Click();
}

WatchedEvent TriggerSection::Watched() const {
  WatchedEvent watched{ChosenEvent()};
  if (IsCompareEvent(watched.event)) {
    watched.parameter = ToInteger16(cboPXXX.Text(), Numbers());
    watched.content = ToTypedDecimal(component_.contentText, Numbers());
  }
  return watched;
}

std::optional<std::string> TriggerSection::Missing() const {
  if (LacksChoice(cboEvent)) return Say(Text::kHintEvent);
  if (LacksChoice(cboPXXX)) return Say(Text::kHintParameters);
  if (!txtContent.Enabled() || !txtContent.Text().empty()) return std::nullopt;
  if (!refusedContent_.empty()) return FillIn(Say(Text::kHintNotANumber), {refusedContent_});
  return Say(Text::kHintContent);
}

bool TriggerSection::Holds() {
  const bool compares = ByEvent() && IsCompareEvent(ChosenEvent());
  if (!compares || IsTypedDecimal(txtContent.Text(), Numbers())) return true;
  Warn(Say(Text::kOutOfRange));
  txtContent.SetFocus();
  return false;
}

std::optional<TriggerMode> TriggerSection::Mode() const {
  const int index = cboTriggerMode.ListIndex();
  if (index < 0) return std::nullopt;
  return static_cast<TriggerMode>(index);
}

TriggerEvent TriggerSection::ChosenEvent() const {
  return EventAt(cboEvent.ListIndex());
}

void TriggerSection::FillEventList() {
  std::vector<std::string> events;
  events.reserve(kEventCount);
  for (int position = 0; position < kEventCount; ++position) events.push_back(Say(EventName(EventAt(position))));
  Refill(cboEvent, std::move(events));
  MarkAvailableEvents();
  cboEvent.SetListIndex(PositionOf(kDefaultEvent));
}

void TriggerSection::FillTriggerModeList() {
  Refill(cboTriggerMode, {Say(Text::kEvent), Say(Text::kManual)});
  cboTriggerMode.SetListIndex(static_cast<int>(TriggerMode::kManual));
}

void TriggerSection::cboTriggerMode_Click() {
  cboEvent.SetEnabled(ByEvent());
  if (ByEvent()) {
    cboEvent.SetListIndex(kNothing);
    cboEvent.SetListIndex(PositionOf(kDefaultEvent));
  } else {
    UseCompareFields(false);
  }
  Changed();  // Start or Trigger, by the mode
}

void TriggerSection::cboEvent_Click() {
  const TriggerEvent event = ChosenEvent();
  const bool available = EventAvailable(event, drive_.SelectedModel());
  if (!available && !opening) {
    ShowMessage(component_, Say(Text::kEventNotAvailable), box_style::kExclamation, component_.helpFile, kHelpContext);
  }
  if (IsCompareEvent(event)) {
    // A file recorded by hand carries an event too; its fields stay locked until the mode is "Event".
    UseCompareFields(!ByHand());
  } else {
    SelectFirst(cboPXXX);
    SetContent("");
    UseCompareFields(false);
  }
  Changed();
  if (!available) cboEvent.SetListIndex(kNothing);
}

void TriggerSection::UseCompareFields(bool usable) {
  cboPXXX.SetEnabled(usable);
  txtContent.SetEnabled(usable);
  ShowParameterName(component_, cboPXXX, lblPXXXName);
}

void TriggerSection::MarkAvailableEvents() {
  std::vector<bool> available;
  for (int position = 0; position < cboEvent.ListCount(); ++position) {
    available.push_back(EventAvailable(EventAt(position), drive_.SelectedModel()));
  }
  cboEvent.SetAvailable(std::move(available));
}

void TriggerSection::cboPXXX_Click() {
  ShowParameterName(component_, cboPXXX, lblPXXXName);
  Changed();
}

/// Content set by the program does not continue typed text.
void TriggerSection::SetContent(const std::string& text) {
  refusedContent_.clear();
  txtContent.SetText(text);
}

bool TriggerSection::ContinuesRefusedContent() const {
  return !refusedContent_.empty() && !txtContent.Text().empty() &&
         component_.ports.clock.Now() - refusedAt_ < kSameBurst;
}

void TriggerSection::txtContent_Change() {
  const bool continues = ContinuesRefusedContent();
  if (continues || !ContentAcceptable(txtContent.Text(), Numbers())) {
    // The rest of 1e5 must not be read as the number 5.
    refusedContent_ = continues ? refusedContent_ + txtContent.Text() : txtContent.Text();
    refusedAt_ = component_.ports.clock.Now();
    txtContent.SetText("");  // comes back here
    return;
  }
  if (!txtContent.Text().empty()) refusedContent_.clear();
  component_.contentText = txtContent.Text();
  Changed();
}

}  // namespace chartproject
