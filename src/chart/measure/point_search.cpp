// Searches through the rows: forwards in one go, backwards in blocks that are each read forwards.
#include "chart/measure/point_search.h"

#include <algorithm>
#include <cmath>

#include "recording/file/field_value.h"

namespace chartproject {
namespace {

/// A point of the series that is looked at.
struct SeenPoint {
  std::int64_t point = 0;
  std::string text;
  double value = 0;
};

bool Crosses(double before, double value, double level) {
  return (before < level && value >= level) || (before > level && value <= level);
}

/// Judges the points of a block in their order.
class Judge {
 public:
  Judge(const PointQuery& query, const NumberFormat& format) : query_(query), format_(format) {}

  /// The point, when it is one that is looked for.
  std::optional<FoundPoint> Take(std::int64_t point, std::string_view text) {
    if (query_.what == SearchFor::kChange) return TakeText(point, text);
    const double value = FieldValue(text, format_);
    const bool gap = std::isnan(value);
    if (query_.what == SearchFor::kGap) {
      const bool begins = gap && last_ && !std::isnan(last_->value);
      const bool first = gap && !last_ && point == 1;
      return Remember(point, text, value, begins || first);
    }
    if (gap) return std::nullopt;
    return Remember(point, text, value, last_ && Crosses(last_->value, value, query_.value));
  }
  /// The last point that counted, and the first one.
  [[nodiscard]] const std::optional<SeenPoint>& Last() const { return last_; }
  [[nodiscard]] const std::optional<SeenPoint>& First() const { return first_; }

 private:
  std::optional<FoundPoint> TakeText(std::int64_t point, std::string_view text) {
    return Remember(point, text, 0, last_ && last_->text != text);
  }

  std::optional<FoundPoint> Remember(std::int64_t point, std::string_view text, double value, bool found) {
    std::optional<FoundPoint> result;
    if (found) result = FoundPoint{point, last_ ? last_->text : std::string(), std::string(text)};
    if (!last_) last_.emplace();
    last_->point = point;
    last_->text.assign(text);
    last_->value = value;
    if (!first_) first_ = last_;
    return result;
  }

  const PointQuery& query_;
  const NumberFormat& format_;
  std::optional<SeenPoint> first_;
  std::optional<SeenPoint> last_;
};

/// The last point up to `end` that counts, however long the gap before `end` is; nothing when the reading was given up
/// or there is none.
std::optional<SeenPoint> LastBefore(ChartSource& source, const PointQuery& query, std::int64_t end,
                                    const NumberFormat& format, const ScanProgress& progress) {
  std::int64_t block = 4096;  // nearly always has it
  while (end >= 1) {
    const std::int64_t begin = std::max<std::int64_t>(1, end - block + 1);
    Judge judge(query, format);
    const auto take = [&](std::int64_t point, const ChartRow& row) {
      judge.Take(point, row.values.at(static_cast<std::size_t>(query.series)));
      return true;
    };
    const auto go = [&](double /*part*/) { return !progress || progress(0); };
    if (!go(0) || !source.ForEach(begin, end, take, go)) break;
    if (judge.Last()) return judge.Last();
    end = begin - 1;
    block = 65536;
  }
  return std::nullopt;
}

PointSearch SearchOn(ChartSource& source, const PointQuery& query, std::int64_t from, std::int64_t points,
                     const NumberFormat& format, const ScanProgress& progress) {
  PointSearch search;
  Judge judge(query, format);
  // The value before a gap decides what comes after it.
  bool stopped = false;
  const auto go = [&](double part) {
    stopped = progress && !progress(part);
    return !stopped;
  };
  if (const auto before = LastBefore(source, query, from, format, go)) judge.Take(before->point, before->text);
  const auto take = [&](std::int64_t point, const ChartRow& row) {
    search.found = judge.Take(point, row.values.at(static_cast<std::size_t>(query.series)));
    return !search.found;
  };
  const bool read = !stopped && source.ForEach(from + 1, points, take, go);
  search.givenUp = !read && !search.found;
  return search;
}

PointSearch SearchBack(ChartSource& source, const PointQuery& query, std::int64_t from, const NumberFormat& format,
                       const ScanProgress& progress) {
  constexpr std::int64_t kBlock = 65536;
  PointSearch search;
  std::optional<SeenPoint> pending;  // the first value of the block after this one
  for (std::int64_t end = from - 1; end >= 1 && !search.found;) {
    const std::int64_t begin = std::max<std::int64_t>(1, end - kBlock + 1);
    Judge judge(query, format);
    const auto take = [&](std::int64_t point, const ChartRow& row) {
      auto found = judge.Take(point, row.values.at(static_cast<std::size_t>(query.series)));
      if (found) search.found = std::move(found);
      return true;
    };
    const double done = 1 - static_cast<double>(end) / static_cast<double>(from);
    const auto go = [&](double /*part*/) { return !progress || progress(done); };
    if (!go(0) || !source.ForEach(begin, end, take, go)) {
      search = {.found = {}, .givenUp = true};
      break;
    }
    if (pending) {
      auto found = judge.Take(pending->point, pending->text);
      if (found) search.found = std::move(found);
    }
    if (judge.First() && judge.First()->point <= end) pending = judge.First();
    end = begin - 1;
  }
  return search;
}

/// The ranges are known without the file.
PointSearch SearchFailed(const PointQuery& query, std::int64_t from, const FailedReadings* failed) {
  PointSearch search;
  if (failed == nullptr) return search;
  for (const FailedRange& range : failed->at(static_cast<std::size_t>(query.series)).Ranges()) {
    if (query.forward && range.first > from) {
      search.found = FoundPoint{range.first};
      return search;
    }
    if (!query.forward && range.first < from) search.found = FoundPoint{range.first};
  }
  return search;
}

}  // namespace

PointSearch FindPoint(ChartSource& source, const PointQuery& query, std::int64_t from, std::int64_t points,
                      const FailedReadings* failed, const NumberFormat& format, const ScanProgress& progress) {
  if (query.what == SearchFor::kFailed) return SearchFailed(query, from, failed);
  return query.forward ? SearchOn(source, query, from, points, format, progress)
                       : SearchBack(source, query, from, format, progress);
}

}  // namespace chartproject
