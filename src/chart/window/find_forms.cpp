// Reading of places and values that a user types.
#include "chart/window/find_forms.h"

#include <cmath>

#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "common/values/calendar.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

constexpr double kSecond = 1000;  // milliseconds
constexpr int kPlaceCharacters = 24;
constexpr int kValueCharacters = 14;

void PlaceInMiddle(Form& form) {
  const Size screen = form.Host().ScreenSize();
  form.SetLeft((screen.width - form.Width()) / 2);
  form.SetTop((screen.height - form.Height()) / 2);
}

/// Milliseconds of "hh:mm:ss" with or without a part of a second after it, or of a number of seconds.
std::optional<double> Duration(const std::string& text, const NumberFormat& format) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string::npos) {
    return IsTypedDecimal(text, format) ? std::optional(ToTypedDecimal(text, format) * kSecond) : std::nullopt;
  }
  const std::string seconds = text.substr(colon + 1);
  if (!IsTypedDecimal(seconds, format)) return std::nullopt;
  const auto whole = SecondsOfClockText(text.substr(0, colon + 1) + "00");
  if (!whole) return std::nullopt;
  return (*whole + ToTypedDecimal(seconds, format)) * kSecond;
}

/// Whole days from the date of the first point to another one; nothing when either is not a date.
std::optional<std::int64_t> DaysTo(const std::string& date, const PointClock& clock, const Locale& locale) {
  const auto wanted = ParseDate(date, locale);
  const auto first = ParseDate(clock.DateText(0), locale);
  if (!wanted || !first) return std::nullopt;
  return DaysBetween(*first, *wanted);
}

/// Milliseconds since the first point of a time of day, with or without a date before it.
std::optional<double> SinceFirst(const std::string& text, const PointClock& clock, const Locale& locale) {
  const double firstOfDay = clock.FirstOfDay().value_or(0);
  const std::size_t blank = text.rfind(' ');
  const auto ofDay = Duration(blank == std::string::npos ? text : text.substr(blank + 1), locale.Numbers());
  if (!ofDay || text.find(':') == std::string::npos) return std::nullopt;
  if (blank != std::string::npos) {
    const auto days = DaysTo(text.substr(0, blank), clock, locale);
    if (!days) return std::nullopt;
    return static_cast<double>(*days * kMillisecondsPerDay) + *ofDay - firstOfDay;
  }
  // The second of the first point begins before the point itself.
  const bool nextDay = *ofDay < firstOfDay;
  return *ofDay - firstOfDay + (nextDay ? static_cast<double>(kMillisecondsPerDay) : 0);
}

}  // namespace

std::optional<std::int64_t> PlaceOf(const std::string& typed, CategoryUnit unit, const PointClock& clock,
                                    const Locale& locale) {
  const std::string text(Trim(typed));
  if (unit == CategoryUnit::kPoints) {
    if (!IsNumeric(text, locale.Numbers())) return std::nullopt;
    const double point = ToDouble(text, locale.Numbers());
    constexpr double kFar = 1e15;
    return point == std::floor(point) && std::abs(point) < kFar ? std::optional(static_cast<std::int64_t>(point))
                                                                : std::nullopt;
  }
  if (!clock.Known()) return std::nullopt;
  const auto elapsed =
      unit == CategoryUnit::kElapsed ? Duration(text, locale.Numbers()) : SinceFirst(text, clock, locale);
  if (!elapsed) return std::nullopt;
  return static_cast<std::int64_t>(std::llround(std::clamp(clock.PointAt(*elapsed), -1e15, 1e15)));
}

GoToForm::GoToForm(Environment& environment, const PointClock& clock, std::int64_t points, CategoryUnit unit)
    : Form(environment.forms, "frmGoTo", MakeHandlerErrorReporter(environment)),
      env_(environment),
      clock_(clock),
      points_(points) {
  units_ = {CategoryUnit::kPoints};
  if (clock.Known()) units_.push_back(CategoryUnit::kElapsed);
  if (clock.Known() && clock.FirstOfDay()) units_.push_back(CategoryUnit::kTimeOfDay);
  constexpr std::array kNames{Text::kGoToPoint, Text::kGoToElapsed, Text::kGoToTime};
  for (std::size_t i = 0; i < units_.size(); ++i) {
    cboUnit.AddItem(LoadMessage(env_, kNames.at(i)));
    if (units_[i] == unit) cboUnit.SetListIndex(static_cast<int>(i));
  }
  if (cboUnit.ListIndex() < 0) cboUnit.SetListIndex(0);
  txtPlace.SetWidthInCharacters(kPlaceCharacters);
  cmdOK.SetDefault(true);
  cmdCancel.SetCancel(true);
  Connect(cboUnit.click, cboUnit, "Click", this, &GoToForm::ShowExample);
  On(cmdOK.click, cmdOK, "Click", &GoToForm::cmdOK_Click);
  cmdCancel.click = {"cmdCancel_Click", [this] { Unload(); }};
  SetLayout(Column({Grid(2, {Cell(lblUnit), Cell(cboUnit, 1), Space(), Cell(txtPlace, 1)}), Cell(lblPlace, 1),
                    Row({Space(), Cell(cmdOK), Cell(cmdCancel)})}));
}

void GoToForm::OnLoad() {
  SetCaption(LoadMessage(env_, Text::kGoToTitle));
  lblUnit.SetCaption(LoadMessage(env_, Text::kGoToTitle));
  cmdOK.SetCaption(LoadMessage(env_, Text::kOk));
  cmdCancel.SetCaption(LoadMessage(env_, Text::kBoxCancel));
  for (Label* label : {&lblUnit, &lblPlace}) label->SetBorderStyle(0);
  ShowExample();
  LayoutChanged();
  PlaceInMiddle(*this);
}

CategoryUnit GoToForm::Unit() const {
  return units_.at(static_cast<std::size_t>(cboUnit.ListIndex()));
}

std::string GoToForm::Example() const {
  if (Unit() == CategoryUnit::kPoints) return std::to_string(points_);
  const double elapsed = clock_.ElapsedAt(static_cast<double>(points_));
  const double from = Unit() == CategoryUnit::kElapsed ? 0 : clock_.FirstOfDay().value_or(0);
  const auto seconds = static_cast<std::int64_t>((elapsed + from) / kSecond);
  if (Unit() == CategoryUnit::kElapsed) return FormatSeconds(seconds);
  constexpr std::int64_t kSecondsPerDay = kMillisecondsPerDay / 1000;
  const std::string time = FormatSeconds(seconds % kSecondsPerDay);
  return seconds < kSecondsPerDay ? time : clock_.DateText(seconds / kSecondsPerDay) + " " + time;
}

void GoToForm::ShowExample() {
  lblPlace.SetCaption(FillIn(LoadMessage(env_, Text::kForExample), {Example()}));
}

void GoToForm::cmdOK_Click() {
  const auto point = PlaceOf(txtPlace.Text(), Unit(), clock_, env_.ports.locale);
  if (point && *point >= 1 && *point <= points_) {
    point_ = point;
    Unload();
    return;
  }
  const std::string fault =
      point ? FillIn(LoadMessage(env_, Text::kGoToOutside), {std::to_string(points_)})
            : FillIn(LoadMessage(env_, Text::kNotUnderstood), {VisibleText(txtPlace.Text()), Example()});
  ShowMessage(env_, fault, box_style::kExclamation);
  txtPlace.SetFocus();
  txtPlace.SelectAll();
}

FindForm::FindForm(Environment& environment, const std::vector<std::string>& names, const PointQuery& last)
    : Form(environment.forms, "frmFind", MakeHandlerErrorReporter(environment)), env_(environment), last_(last) {
  for (const Text what : {Text::kFindCrossing, Text::kFindChange, Text::kFindGap, Text::kFindFailed}) {
    cboWhat.AddItem(LoadMessage(env_, what));
  }
  for (const std::string& name : names) cboSeries.AddItem(name);
  txtValue.SetWidthInCharacters(kValueCharacters);
  cmdNext.SetDefault(true);
  cmdCancel.SetCancel(true);
  On(cboWhat.click, cboWhat, "Click", &FindForm::cboWhat_Click);
  On(cmdNext.click, cmdNext, "Click", &FindForm::cmdNext_Click);
  On(cmdPrevious.click, cmdPrevious, "Click", &FindForm::cmdPrevious_Click);
  cmdCancel.click = {"cmdCancel_Click", [this] { Unload(); }};
  SetLayout(Column({Grid(2, {Cell(lblWhat), Cell(cboWhat, 1), Cell(lblSeries), Cell(cboSeries, 1), Cell(lblValue),
                             Cell(txtValue, 1)}),
                    Row({Space(), Cell(cmdNext), Cell(cmdPrevious), Cell(cmdCancel)})}));
}

void FindForm::OnLoad() {
  const std::initializer_list<std::pair<Control*, Text>> captions{
      {&lblWhat, Text::kFindWhat},       {&lblSeries, Text::kFindSeries},           {&lblValue, Text::kFindValue},
      {&cmdNext, Text::kFindNextButton}, {&cmdPrevious, Text::kFindPreviousButton}, {&cmdCancel, Text::kBoxCancel}};
  for (const auto& [control, text] : captions) control->SetCaption(LoadMessage(env_, text));
  SetCaption(LoadMessage(env_, Text::kFindTitle));
  for (Label* label : {&lblWhat, &lblSeries, &lblValue}) label->SetBorderStyle(0);
  cboWhat.SetListIndex(static_cast<int>(last_.what));
  cboSeries.SetListIndex(std::min(last_.series, cboSeries.ListCount() - 1));
  txtValue.SetText(DoubleText(last_.value, env_.ports.locale.Numbers()));
  cboWhat_Click();
  LayoutChanged();
  PlaceInMiddle(*this);
}

void FindForm::cboWhat_Click() {
  txtValue.SetEnabled(cboWhat.ListIndex() == static_cast<int>(SearchFor::kCrossing));
}

void FindForm::Choose(bool forward) {
  const NumberFormat& format = env_.ports.locale.Numbers();
  PointQuery query{static_cast<SearchFor>(cboWhat.ListIndex()), cboSeries.ListIndex(), last_.value, forward};
  if (query.what == SearchFor::kCrossing) {
    if (!IsTypedDecimal(txtValue.Text(), format)) {
      const std::string example = DoubleText(12.5, format);
      ShowMessage(env_, FillIn(LoadMessage(env_, Text::kNotUnderstood), {VisibleText(txtValue.Text()), example}),
                  box_style::kExclamation);
      txtValue.SetFocus();
      txtValue.SelectAll();
      return;
    }
    query.value = ToTypedDecimal(txtValue.Text(), format);
  }
  query_ = query;
  Unload();
}

}  // namespace chartproject
