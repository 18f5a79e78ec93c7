// The program's stand-in for the drive host's main window.
#include "host/window/start_form.h"

#include "common/environment/language.h"
#include "common/environment/settings_io.h"
#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/message_box.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "forms/form_host.h"
#include "host/window/drive_forms.h"

namespace chartproject {

namespace {

constexpr int kDriveLineWidth = 46;
constexpr std::size_t kMostOfName = 40;  // characters; the tool tip has the full name

/// The file's name on a button: "&" would mark an access key, and a long name would widen the window.
std::string ButtonName(const std::string& fileName) {
  const std::string name = VisibleText(fileName.substr(fileName.find_last_of('/') + 1));
  std::string shown;
  std::size_t characters = 0;
  for (const char c : name) {
    const bool begins = (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    if (begins && ++characters > kMostOfName) return shown + "...";
    shown += c == '&' ? "&&" : std::string(1, c);
  }
  return shown;
}

}  // namespace

void ShowReplacedSettings(Component& component, const std::vector<ReplacedSetting>& replaced) {
  if (replaced.empty()) return;
  std::string text = LoadMessage(component, Text::kStartSettingsReplaced) + "\r\n";
  for (const ReplacedSetting& setting : replaced) text += "\r\n" + setting.name + "=" + setting.before;
  ShowMessage(component, text, box_style::kInformation);
}

StartForm::StartForm(ChartClass& instance, std::string madeIn, LinkChoice choice)
    : Form(instance.State().forms, "frmStart", MakeHandlerErrorReporter(instance.State())),
      link(*this, instance.State(), std::move(choice), [this](bool enabled) { SetOthersEnabled(enabled); }),
      recovery(*this, instance.State()),
      instance_(instance),
      component_(instance.State()),
      madeIn_(std::move(madeIn)) {
  for (const LanguageRow& row : kLanguages) cboLanguage.AddItem(std::string(row.ownName));
  PlaceControls();
  Connect();
}

void StartForm::PlaceControls() {
  rtfDrives.SetMultiLine(true);
  rtfDrives.SetReadOnly(true);
  rtfDrives.SetWidthInCharacters(kDriveLineWidth);
  lblNote.SetWordWrap(true);
  for (Label* label : {&lblProject, &lblNote, &lblLanguage}) label->SetBorderStyle(0);
  // What collapses begins without room, since a window that was once high stays so.
  lblNote.SetVisible(false);
  fraRecent.SetVisible(false);
  for (CommandButton& button : cmdRecent) button.SetVisible(false);
  cmdAcquire.SetDefault(true);
  cmdClose.SetCancel(true);
  LayoutBox drives = Stretched(Group(fraDrives, Column({Cell(rtfDrives, 1, 1), Cell(lblProject, 1)})), 1, 1);
  LayoutBox buttons =
      Column({Cell(cmdAcquire), Cell(cmdOpenChart), Space(0, 0.5), Cell(cmdAddDrive), Cell(cmdRemoveDrive),
              Cell(cmdOpenProject), Space(0, 0.5), Cell(cmdHelp), Cell(cmdClose)});
  std::vector<LayoutBox> recent;
  for (CommandButton& button : cmdRecent) recent.push_back(Collapsing(Cell(button, 1)));
  SetLayout(Column({recovery.Layout(), link.Layout(), Row({std::move(drives), std::move(buttons)}),
                    Collapsing(Group(fraRecent, Column(std::move(recent)))), Collapsing(Cell(lblNote, 1)),
                    Row({Cell(lblLanguage), Cell(cboLanguage), Space(), Cell(chkSound)})}));
}

void StartForm::Connect() {
  cmdAcquire.click = {"cmdAcquire_Click", [this] { cmdAcquire_Click(); }};
  cmdOpenChart.click = {"cmdOpenChart_Click", [this] { cmdOpenChart_Click(); }};
  On(cmdAddDrive.click, cmdAddDrive, "Click", &StartForm::cmdAddDrive_Click);
  On(cmdRemoveDrive.click, cmdRemoveDrive, "Click", &StartForm::cmdRemoveDrive_Click);
  On(cmdOpenProject.click, cmdOpenProject, "Click", &StartForm::cmdOpenProject_Click);
  cmdClose.click = {"cmdClose_Click", [this] { Unload(); }};
  cboLanguage.click = {"cboLanguage_Click", [this] { cboLanguage_Click(); }};
  chkSound.click = {"chkSound_Click", [this] { chkSound_Click(); }};
  helpRequested = {"Form_Help", [this] { component_.ports.help.ShowContext(component_.helpFile, 0); }};
  cmdHelp.click = helpRequested;
  for (std::size_t i = 0; i < cmdRecent.size(); ++i) {
    cmdRecent.at(i).click = {cmdRecent.at(i).Name() + "_Click", [this, i] { OpenChart(std::string(recent_.at(i))); }};
  }
  fileDropped = [this](const std::string& fileName) { OpenChart(fileName); };
  RememberAllCharts(component_);
}

void StartForm::OnLoad() {
  const Settings& settings = component_.settings;
  for (std::size_t i = 0; i < kLanguages.size(); ++i) {
    if (settings.strLanguage == kLanguages[i].name) cboLanguage.SetListIndex(static_cast<int>(i));
  }
  chkSound.SetValue(settings.strSound == "No" ? 0 : 1);
  lblNote.SetVisible(!madeIn_.empty());
  ShowProject();
  ShowRecent();
  ShowTexts();
  LayoutChanged();
  const Size screen = component_.forms.ScreenSize();
  SetLeft((screen.width - Width()) / 2);
  SetTop((screen.height - Height()) / 2);
  LoadFormPictures(component_, *this);
}

void StartForm::ShowTexts() {
  SetCaption("ChartProject");
  recovery.Translate();
  const auto text = [this](Text which) { return LoadMessage(component_, which); };
  fraDrives.SetCaption(text(Text::kStartDrives));
  cmdAcquire.SetCaption(text(Text::kStartAcquire));
  cmdOpenChart.SetCaption(text(Text::kStartOpenChart));
  cmdAddDrive.SetCaption(text(Text::kStartAddDrive));
  cmdRemoveDrive.SetCaption(text(Text::kStartRemoveDrive));
  cmdOpenProject.SetCaption(text(Text::kStartOpenProject));
  cmdHelp.SetCaption(text(Text::kBoxHelp));
  cmdClose.SetCaption(text(Text::kStartClose));
  fraRecent.SetCaption(text(Text::kStartRecent));
  lblLanguage.SetCaption(text(Text::kStartLanguage));
  chkSound.SetCaption(text(Text::kStartSound));
  if (lblNote.Visible() && !madeIn_.empty()) {
    lblNote.SetCaption(FillIn(text(Text::kStartProjectMade), {madeIn_}));
  }
  link.Translate();
}

std::string StartForm::DriveLines() const {
  std::string lines;
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    const DriveRecord& drive = component_.driveTable.At(address);
    if (drive.Type.empty()) continue;
    if (!lines.empty()) lines += "\r\n";
    lines += drive.Address + "\t" + drive.Type + "\t" + drive.FirmwareVersion + "\t" + drive.Tag;
  }
  return lines;
}

void StartForm::cboLanguage_Click() {
  if (cboLanguage.ListIndex() < 0) return;
  component_.settings.strLanguage = kLanguages.at(static_cast<std::size_t>(cboLanguage.ListIndex())).name;
  SetLanguageBase(component_);
  SetHelpFile(component_);
  ShowTexts();
}

void StartForm::chkSound_Click() {
  component_.settings.strSound = chkSound.Value() == 0 ? "No" : "Yes";
}

void StartForm::cmdAcquire_Click() {
  SayNote({});  // said once
  if (!link.Apply()) return;
  instance_.AcquireVar();
  recovery.Look(component_.settings.strFolder);
  ShowRecent();
}

void StartForm::cmdOpenChart_Click() {
  SayNote({});
  const auto fileName = AskForChart(component_);
  if (fileName) OpenChart(*fileName);
}

void StartForm::OpenChart(const std::string& fileName) {
  SayNote({});
  RememberChart(component_, fileName);
  ShowRecent();
  instance_.CreateChart(fileName);
}

void StartForm::cmdAddDrive_Click() {
  ChangeProject([this](ProjectEdit& edit) {
    AddDriveForm::Proposal proposal;
    if (const std::vector<FoundDrive> found = link.NewDrives(); !found.empty()) {
      proposal.address = found.front().address;
      if (const DriveModel* const model = FindModelIn(found.front().name)) proposal.model = model->name;
    }
    AddDriveForm form(component_, edit, proposal);
    form.ShowModal();
    return form.Done();
  });
}

void StartForm::cmdRemoveDrive_Click() {
  ChangeProject([this](ProjectEdit& edit) {
    RemoveDriveForm form(component_, edit);
    form.ShowModal();
    return form.Done();
  });
}

void StartForm::cmdOpenProject_Click() {
  const auto fileName = component_.ports.dialogs.ShowOpenFile(
      {component_.settings.strFolder, LoadMessage(component_, Text::kStartProjectFiles) + " (*.kpr)|*.kpr", 1, 4096});
  if (!fileName) return;
  ChangeProject([this, &fileName](ProjectEdit& edit) {
    ShowReplacedSettings(component_, edit.Open(*fileName));
    return std::string();
  });
}

void StartForm::ChangeProject(const std::function<std::string(ProjectEdit&)>& change) {
  madeIn_.clear();
  SayNote({});
  SaveProjectSettings(component_);
  ProjectEdit edit(component_.ports.files, component_.ports.settings, component_.ports.codePage);
  std::string note;
  try {
    note = change(edit);
  } catch (const RunTimeError& error) {
    ShowMessage(component_, error.Description(component_.language), box_style::kExclamation);
  }
  ReadProjectSettings(component_);
  ReadFolderSettings(component_);
  SetHelpFile(component_);
  component_.driveTable.Clear();
  LoadDriveInfo(component_, 0);
  ShowProject();
  link.ProjectChanged();
  SayNote(note);
}

void StartForm::ShowProject() {
  rtfDrives.SetText(DriveLines());
  lblProject.SetCaption(component_.settings.strFolder);
  recovery.Look(component_.settings.strFolder);
  cmdRemoveDrive.SetEnabled(!rtfDrives.Text().empty());
}

void StartForm::SayNote(const std::string& text) {
  lblNote.SetCaption(text);
  lblNote.SetVisible(!text.empty());
  LayoutChanged();
}

void StartForm::SetOthersEnabled(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{&cmdAcquire, &cmdOpenChart, &cmdAddDrive, &cmdOpenProject,
                                                          &fraRecent, &cboLanguage, &link.cboLink, &link.cboPort,
                                                          &link.txtPort, &link.cboSpeed, &link.cboParity}) {
    control->SetEnabled(enabled);
  }
  cmdRemoveDrive.SetEnabled(enabled && !rtfDrives.Text().empty());
  recovery.SetEnabled(enabled);
  cmdClose.SetCancel(enabled);  // Esc ends the test
}

void StartForm::ShowRecent() {
  recent_ = RecentCharts(component_.ports);
  for (std::size_t i = 0; i < cmdRecent.size(); ++i) {
    const bool there = i < recent_.size();
    cmdRecent.at(i).SetVisible(there);
    if (!there) continue;
    cmdRecent.at(i).SetCaption("&" + std::to_string(i + 1) + "  " + ButtonName(recent_[i]));
    cmdRecent.at(i).SetToolTipText(recent_[i]);
  }
  fraRecent.SetVisible(!recent_.empty());
}

}  // namespace chartproject
