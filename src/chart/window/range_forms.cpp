// Lists of ranges and fields to type in.
#include "chart/window/range_forms.h"

#include <algorithm>

#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/values/text.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

constexpr double kQuestionWidth = 380;
constexpr int kTitleCharacters = 48;

void FillList(ComboBox& list, const std::vector<RangeEntry>& entries, std::size_t chosen) {
  for (const RangeEntry& entry : entries) list.AddItem(entry.text);
  list.SetListIndex(static_cast<int>(chosen));
}

PointRange ChosenRange(const ComboBox& list, const std::vector<RangeEntry>& entries) {
  return entries.at(static_cast<std::size_t>(std::max(0, list.ListIndex()))).range;
}

void PlaceInMiddle(Form& form) {
  form.LayoutChanged();
  const Size screen = form.Host().ScreenSize();
  form.SetLeft((screen.width - form.Width()) / 2);
  form.SetTop((screen.height - form.Height()) / 2);
}

}  // namespace

ExportForm::ExportForm(Environment& environment, const std::string& question, std::vector<RangeEntry> entries)
    : Form(environment.forms, "frmExport", MakeHandlerErrorReporter(environment)),
      env_(environment),
      entries_(std::move(entries)) {
  lblQuestion.SetCaption(question);
  lblQuestion.SetWordWrap(true);
  FillList(cboRange, entries_, 0);
  cmdYes.SetDefault(true);
  cmdNo.SetCancel(true);
  On(cmdYes.click, cmdYes, "Click", &ExportForm::cmdYes_Click);
  cmdNo.click = {"cmdNo_Click", [this] { Unload(); }};
  SetLayout(AtLeast(Column({Cell(lblQuestion, 1), Row({Cell(lblRange), Cell(cboRange, 1)}),
                            Row({Space(), Cell(cmdYes), Cell(cmdNo)})}),
                    kQuestionWidth));
}

void ExportForm::OnLoad() {
  SetCaption(kHostTitle);
  lblRange.SetCaption(LoadMessage(env_, Text::kRangeLabel));
  cmdYes.SetCaption(LoadMessage(env_, Text::kYes));
  cmdNo.SetCaption(LoadMessage(env_, Text::kNo));
  for (Label* label : {&lblQuestion, &lblRange}) label->SetBorderStyle(0);
  PlaceInMiddle(*this);
}

void ExportForm::cmdYes_Click() {
  range_ = ChosenRange(cboRange, entries_);
  Unload();
}

ReportForm::ReportForm(Environment& environment, ReportQuestion asked)
    : Form(environment.forms, "frmReport", MakeHandlerErrorReporter(environment)),
      env_(environment),
      asked_(std::move(asked)) {
  FillList(cboRange, asked_.entries, asked_.chosen);
  txtTitle.SetWidthInCharacters(kTitleCharacters);
  txtRemark.SetWidthInCharacters(kTitleCharacters);
  txtRemark.SetMultiLine(true);
  cmdPrint.SetDefault(true);
  cmdCancel.SetCancel(true);
  On(cmdPrint.click, cmdPrint, "Click", &ReportForm::cmdPrint_Click);
  cmdCancel.click = {"cmdCancel_Click", [this] { Unload(); }};
  SetLayout(Column({Grid(2, {Cell(lblRange), Cell(cboRange, 1), Cell(lblTitle), Cell(txtTitle, 1), Cell(lblRemark),
                             Cell(txtRemark, 1, 1)}),
                    Row({Space(), Cell(cmdPrint), Cell(cmdCancel)})}));
}

void ReportForm::OnLoad() {
  const std::initializer_list<std::pair<Control*, Text>> captions{{&lblRange, Text::kRangeLabel},
                                                                  {&lblTitle, Text::kReportTitle},
                                                                  {&lblRemark, Text::kReportRemark},
                                                                  {&cmdPrint, Text::kPrint},
                                                                  {&cmdCancel, Text::kBoxCancel}};
  for (const auto& [control, text] : captions) control->SetCaption(LoadMessage(env_, text));
  SetCaption(LoadMessage(env_, Text::kReportForm));
  for (Label* label : {&lblRange, &lblTitle, &lblRemark}) label->SetBorderStyle(0);
  txtTitle.SetText(asked_.title);
  txtRemark.SetText(asked_.remark);
  PlaceInMiddle(*this);
}

void ReportForm::cmdPrint_Click() {
  answer_ = {ChosenRange(cboRange, asked_.entries), txtTitle.Text(), txtRemark.Text()};
  Unload();
}

}  // namespace chartproject
