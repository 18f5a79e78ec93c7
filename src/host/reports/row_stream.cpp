// A point as a line.
#include "host/reports/row_stream.h"

#include "chart/plain/plain_value.h"
#include "drive/unit_codes.h"

namespace chartproject {
namespace {

std::vector<std::string> HeadsOf(Component& component, const RunPlan& plan) {
  const ParameterTable& table = component.parameterTables.At(plan.driveAddress);
  std::vector<std::string> heads;
  for (int column = 0; column < plan.parameterCount; ++column) {
    const int parameter = plan.columns.at(static_cast<std::size_t>(column));
    const ParameterEntry& entry = table.At(parameter);
    heads.push_back(PlainHead(ParameterName(parameter), entry.name, entry.text5));
  }
  MakeHeadsUnique(heads);
  return heads;
}

}  // namespace

RowStream::RowStream(std::ostream& out, Component& component, const RunPlan& plan, const TimeZone& zone)
    : out_(out),
      component_(component),
      zone_(zone),
      heads_(HeadsOf(component, plan)),
      line_(PlainFormat::kJsonLines, heads_),
      moments_(zone) {}

void RowStream::Write(const AcquisitionRun& run) {
  constexpr std::int64_t kMillisecondsPerSecond = 1000;
  const DateTime& taken = run.LastPointTaken();
  const PointRow& point = run.LastPoint();
  text_.CutTo();
  line_.Begin(text_);
  line_.BeginTime(text_);
  moments_.Append(text_, zone_.UtcSeconds(taken) * kMillisecondsPerSecond + taken.millisecond);
  line_.EndTime(text_);
  for (std::size_t column = 0; column < heads_.size(); ++column) {
    line_.NextColumn(text_);
    const bool failed = run.Failed().at(column).LastPoint() == run.Counter();
    const PlainKind kind = failed
                               ? PlainKind::kNothing
                               : AppendPlainNumber(text_, point.values.at(column), component_.ports.locale.Numbers());
    if (kind == PlainKind::kNothing) line_.AppendNothing(text_);
    if (kind == PlainKind::kText) line_.AppendText(text_, point.values.at(column));
  }
  line_.End(text_);
  out_ << text_.View() << std::flush;
}

}  // namespace chartproject
