// Fields to link text and back, and the search on a thread of its own.
#include "host/window/link_section.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "forms/flag_scope.h"
#include "forms/form_host.h"

namespace chartproject {

namespace {

constexpr int kNameWidth = 30;  // characters

struct LineFrame {
  Parity parity;
  int stopBits;
  Text words;
  const char* name;
};
constexpr std::array kFrames{
    LineFrame{Parity::kEven, 1, Text::kParityEven, "8E1"}, LineFrame{Parity::kNone, 1, Text::kParityNone, "8N1"},
    LineFrame{Parity::kOdd, 1, Text::kParityOdd, "8O1"},   LineFrame{Parity::kNone, 2, Text::kParityNone, "8N2"},
    LineFrame{Parity::kEven, 2, Text::kParityEven, "8E2"}, LineFrame{Parity::kOdd, 2, Text::kParityOdd, "8O2"}};

std::string Joined(const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
  return list;
}

/// As a link names it: an address with colons has brackets.
std::string HostText(const LineSettings& line) {
  const bool brackets = line.port.find(':') != std::string::npos;
  return (brackets ? "[" + line.port + "]" : line.port) + ":" + line.service;
}

void AddLine(std::string& text, const std::string& line) {
  text += (text.empty() ? "" : "\n") + line;
}

}  // namespace

LinkSection::LinkSection(Form& form, Component& component, LinkChoice choice, std::function<void(bool enabled)> lock)
    : Section(form, component), choice_(std::move(choice)), lock_(std::move(lock)) {
  for (Label* label : {&lblLink, &lblPort, &lblHost, &lblSpeed, &lblParity, &lblLinkNote}) label->SetBorderStyle(0);
  lblLinkNote.SetWordWrap(true);
  lblLinkNote.SetVisible(false);
  cmdTestLink.SetVisible(false);
  for (Control* control : FieldsOfALine()) control->SetVisible(false);
  for (Control* control : {static_cast<Control*>(&lblHost), static_cast<Control*>(&txtPort)})
    control->SetVisible(false);
  txtPort.SetWidthInCharacters(kNameWidth);
  Connect(cboLink.click, cboLink, "Click", this, &LinkSection::cboLink_Click);
  Connect(cboPort.click, cboPort, "Click", this, &LinkSection::cboPort_Click);
  Connect(txtPort.lostFocus, txtPort, "LostFocus", this, &LinkSection::FieldChanged);
  Connect(cboSpeed.click, cboSpeed, "Click", this, &LinkSection::FieldChanged);
  Connect(cboParity.click, cboParity, "Click", this, &LinkSection::FieldChanged);
  Connect(cmdTestLink.click, cmdTestLink, "Click", this, &LinkSection::cmdTestLink_Click);
}

LayoutBox LinkSection::Layout() {
  return Group(
      picLink,
      Column({Row({LineStart(lblLink), Cell(cboLink), Space(), Cell(cmdTestLink)}),
              Collapsing(Row({LineStart(lblPort), Cell(cboPort, 1)})),
              Collapsing(Row({LineStart(lblHost), Cell(txtPort, 1)})),
              Collapsing(Row({LineStart(lblSpeed), Cell(cboSpeed), Cell(lblParity), Cell(cboParity), Space()})),
              Collapsing(Cell(lblLinkNote, 1))}));
}

void LinkSection::Translate() {
  lblLink.SetCaption(Say(Text::kLinkDrives));
  lblPort.SetCaption(Say(Text::kLinkPort));
  lblSpeed.SetCaption(Say(Text::kLinkSpeed));
  lblParity.SetCaption(Say(Text::kLinkParity));
  cmdTestLink.SetCaption(Say(Text::kLinkTest));
  cmdTestLink.SetToolTipText(Say(Text::kLinkTestTip));
  ShowLine(choice_.links.Link());
}

LineSettings LinkSection::Defaults() const {
  const LinkSurroundings& around = choice_.links.Surroundings();
  return LineDefaults(around.settings, around.locale.Numbers());
}

void LinkSection::ShowLine(const std::string& link) {
  const FlagScope showing(showing_);
  Note({});
  line_ = Defaults();
  FillKinds(link);
  if (IsLineText(link)) {
    try {
      line_ = ParseLineText(link, Defaults());
    } catch (const RunTimeError& error) {  // a stored text that somebody wrote by hand
      Note(error.Description(component_.language));
    }
  }
  FillSpeeds();
  FillParities();
  txtPort.SetText(Chosen() == Kind::kNetwork ? HostText(line_) : std::string());
  if (Chosen() == Kind::kSerial) FillPorts();
  ShowFields();
}

void LinkSection::FillKinds(const std::string& link) {
  std::vector<std::string> kinds{Say(Text::kLinkSimulated), Say(Text::kLinkSerial), Say(Text::kLinkNetwork)};
  Kind kind = Kind::kSimulated;
  if (IsLineText(link)) {
    kind = link.starts_with("modbus-tcp:") ? Kind::kNetwork : Kind::kSerial;
  } else if (link != kSimulatedLink) {
    other_ = link;  // a scenario
    kinds.push_back(VisibleText(link));
    kind = Kind::kOther;
  }
  Refill(cboLink, std::move(kinds));
  cboLink.SetListIndex(static_cast<int>(kind));
}

/// The ports that are there, the chosen one even when its converter is not plugged in, and two entries that do more.
void LinkSection::FillPorts() {
  const FlagScope showing(showing_);
  const std::vector<SerialPort> found = choice_.listPorts();
  std::vector<std::string> items;
  ports_.clear();
  int chosen = -1;
  const bool named = IsLineText(choice_.links.Link()) && !line_.network;
  for (const SerialPort& port : found) {
    if (named && (line_.port == port.name || line_.port == port.lasting)) chosen = static_cast<int>(ports_.size());
    ports_.push_back(port.BestName());
    const std::string name = VisibleText(port.BestName());
    items.push_back(port.user.empty() ? name : FillIn(Say(Text::kPortInUse), {name, VisibleText(port.user)}));
  }
  if (chosen < 0 && named) {
    chosen = static_cast<int>(ports_.size());
    ports_.push_back(line_.port);
    items.push_back(VisibleText(line_.port));
  }
  if (chosen < 0 && !ports_.empty()) chosen = 0;
  items.push_back(Say(Text::kLinkAnotherPort));
  items.push_back(Say(Text::kLinkLookAgain));
  Refill(cboPort, std::move(items));
  cboPort.SetListIndex(chosen);
  if (ports_.empty()) Note(Say(Text::kLinkNoPorts));
}

void LinkSection::FillSpeeds() {
  std::vector<std::string> speeds;
  for (const int baud : kBauds) speeds.push_back(std::to_string(baud));
  std::ranges::sort(speeds, {}, [](const std::string& text) { return std::stoi(text); });
  Refill(cboSpeed, std::move(speeds));
  SelectItem(cboSpeed, std::to_string(line_.baud));
}

void LinkSection::FillParities() {
  std::vector<std::string> items;
  int chosen = 0;
  for (const LineFrame& frame : kFrames) {
    if (frame.parity == line_.parity && frame.stopBits == line_.stopBits) chosen = static_cast<int>(items.size());
    items.push_back(Say(frame.words) + " (" + frame.name + ")");
  }
  Refill(cboParity, std::move(items));
  cboParity.SetListIndex(chosen);
}

std::array<Control*, 6> LinkSection::FieldsOfALine() {
  return {&lblPort, &cboPort, &lblSpeed, &cboSpeed, &lblParity, &cboParity};
}

void LinkSection::ShowFields() {
  const bool serial = Chosen() == Kind::kSerial;
  const bool network = Chosen() == Kind::kNetwork;
  const bool another = serial && cboPort.ListIndex() == static_cast<int>(ports_.size());
  for (Control* control :
       std::initializer_list<Control*>{&lblPort, &cboPort, &lblSpeed, &cboSpeed, &lblParity, &cboParity}) {
    control->SetVisible(serial);
  }
  lblHost.SetCaption(Say(network ? Text::kLinkHost : Text::kLinkOtherPort));
  lblHost.SetVisible(network || another);
  txtPort.SetVisible(network || another);
  cmdTestLink.SetVisible(serial || network);
  form_.LayoutChanged();
}

void LinkSection::Note(const std::string& text) {
  const bool otherLines = std::ranges::count(text, '\n') != std::ranges::count(lblLinkNote.Caption(), '\n');
  const bool appears = lblLinkNote.Visible() == text.empty();
  lblLinkNote.SetCaption(text);
  if (!appears && !otherLines) return;
  lblLinkNote.SetVisible(!text.empty());
  form_.LayoutChanged();
}

std::optional<std::string> LinkSection::ChosenLink() {
  if (Chosen() == Kind::kSimulated) return kSimulatedLink;
  if (Chosen() == Kind::kOther) return other_;
  LineSettings line = line_;
  line.network = Chosen() == Kind::kNetwork;
  if (line.network) {
    const std::string host = std::string(Trim(txtPort.Text()));
    if (host.empty()) {
      Note(Say(Text::kLinkHostMissing));
      return std::nullopt;
    }
    const LineSettings named = ParseLineText("modbus-tcp:" + host, Defaults());
    line.port = named.port;
    line.service = named.service;
    if (!line_.network) line.gap = named.gap;
    return LineText(line, Defaults());
  }
  const auto place = static_cast<std::size_t>(cboPort.ListIndex());
  line.port = cboPort.ListIndex() >= 0 && place < ports_.size() ? ports_[place] : std::string(Trim(txtPort.Text()));
  if (line.port.empty()) {
    Note(Say(ports_.empty() ? Text::kLinkNoPorts : Text::kLinkPortMissing));
    return std::nullopt;
  }
  if (line_.network) line.gap = Defaults().gap;
  line.baud = std::stoi(cboSpeed.Text());
  const LineFrame& frame = kFrames.at(static_cast<std::size_t>(cboParity.ListIndex()));
  line.parity = frame.parity;
  line.stopBits = frame.stopBits;
  return LineText(line, Defaults());
}

bool LinkSection::Apply() {
  try {
    const std::optional<std::string> link = ChosenLink();
    if (!link) return false;
    if (*link == choice_.links.Link()) {
      choice_.links.Make();  // a stored text was not checked before
      return true;
    }
    choice_.links.Choose(*link);
    if (IsLineText(*link)) line_ = ParseLineText(*link, Defaults());
    found_.clear();
    tested_ = false;
    Note({});
    const std::array stored{StoredSetting{kLinkKey, *link}};
    component_.ports.settings.Write(kLinkSection, stored);
    return true;
  } catch (const RunTimeError& error) {
    Note(error.Description(component_.language));
    return false;
  }
}

void LinkSection::cboLink_Click() {
  if (showing_ || cboLink.ListIndex() < 0) return;
  Note({});
  txtPort.SetText("");
  if (Chosen() == Kind::kSerial) FillPorts();
  ShowFields();
  const bool empty = Chosen() == Kind::kNetwork || (Chosen() == Kind::kSerial && ports_.empty());
  if (!empty) (void)Apply();
}

void LinkSection::cboPort_Click() {
  if (showing_ || cboPort.ListIndex() < 0) return;
  const auto place = static_cast<std::size_t>(cboPort.ListIndex());
  if (place > ports_.size()) FillPorts();
  ShowFields();
  if (place == ports_.size() && txtPort.Visible()) {
    txtPort.SetFocus();
  } else {
    FieldChanged();
  }
}

void LinkSection::FieldChanged() {
  if (showing_ || testing_ || !cmdTestLink.Visible()) return;
  if (txtPort.Visible() && Trim(txtPort.Text()).empty()) return;
  (void)Apply();
}

/// While a test runs its button ends it, and so does Esc.
void LinkSection::cmdTestLink_Click() {
  if (testing_) {
    StopTest();
    return;
  }
  if (!Apply()) return;
  const FlagScope testing(testing_);
  testWanted_ = true;
  lock_(false);
  cmdTestLink.SetCaption(Say(Text::kLinkStop));
  cmdTestLink.SetCancel(true);
  cmdTestLink.SetFocus();
  try {
    Test();
  } catch (const RunTimeError& error) {
    Note(error.Description(component_.language));
  }
  cmdTestLink.SetCaption(Say(Text::kLinkTest));
  cmdTestLink.SetCancel(false);
  lock_(true);
}

void LinkSection::Test() {
  found_.clear();
  tested_ = false;
  const LineSettings line = ParseLineText(choice_.links.Link(), Defaults());
  BackgroundScan scan(choice_.makePorts(), choice_.links.Surroundings().clock);
  LinkWait wait;
  wait.goOn = [this] {
    form_.Host().KeepAlive();
    return testWanted_;
  };
  const bool complete = scan.Run({1, kLastDriveAddress, {line}}, wait, [this](const ScanState& state) {
    found_ = state.found;
    std::string text = FillIn(Say(Text::kLinkAsking), {std::to_string(state.done), std::to_string(kLastDriveAddress)});
    if (!found_.empty()) AddLine(text, TestResult(false));
    Note(text);
  });
  found_ = scan.State().found;
  std::string text = complete ? std::string() : Say(Text::kLinkStopped);
  if (complete || !found_.empty()) AddLine(text, TestResult(complete));
  tested_ = complete;
  Note(text);
}

/// @param complete every address was asked: who is silent is known
std::string LinkSection::TestResult(bool complete) const {
  std::vector<std::string> answering;
  std::vector<std::string> silent;
  for (const FoundDrive& drive : found_) {
    answering.push_back(FormatDigits(drive.address, 2) +
                        (drive.name.empty() ? "" : " (" + VisibleText(drive.name) + ")"));
  }
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    const bool answers = std::ranges::find(found_, address, &FoundDrive::address) != found_.end();
    if (!component_.driveTable.At(address).Type.empty() && !answers) silent.push_back(FormatDigits(address, 2));
  }
  std::string text = found_.empty() ? Say(Text::kLinkNobody) : FillIn(Say(Text::kLinkAnswer), {Joined(answering)});
  if (!complete || found_.empty()) return text;
  std::vector<std::string> others;
  for (const FoundDrive& drive : NewDrives()) others.push_back(FormatDigits(drive.address, 2));
  if (!others.empty()) AddLine(text, FillIn(Say(Text::kLinkNotInProject), {Joined(others)}));
  if (!silent.empty()) AddLine(text, FillIn(Say(Text::kLinkNoAnswer), {Joined(silent)}));
  return text;
}

void LinkSection::ProjectChanged() {
  if (tested_) Note(TestResult(true));
}

std::vector<FoundDrive> LinkSection::NewDrives() const {
  std::vector<FoundDrive> drives;
  for (const FoundDrive& drive : found_) {
    if (component_.driveTable.At(drive.address).Type.empty()) drives.push_back(drive);
  }
  return drives;
}

}  // namespace chartproject
