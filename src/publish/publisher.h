// Sends one recording to one database, batch by batch, and goes on where it was after every kind of break. The
// recording on disk is the queue: nothing waits in memory but one batch.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/line_poster.h"
#include "platform/locale.h"
#include "platform/run_time_error.h"
#include "platform/time_zone.h"
#include "publish/line_protocol.h"
#include "publish/publish_position.h"
#include "publish/recording_feed.h"
#include "publish/row_moments.h"
#include "publish/send_history.h"

namespace chartproject {

/// What a publisher uses of the outside; all outlive it. Its own, where it works on a thread of its own.
struct PublishPorts {
  FileSystem& files;
  const CodePage& codePage;
  const Locale& locale;
  const TimeZone& zone;
  Clock& clock;  ///< the real one: a server answers in real time
};

struct PublishRequest {
  std::string chartFile;    ///< full name, links resolved
  std::string measurement;  ///< see IsMeasurement
  /// The tags of the recording, without its own name.
  std::function<LineTags(const ChartHeader&)> tags{};
  bool live = false;   ///< its recorder runs in this program, and reports its end
  bool again = false;  ///< from the first point, also where a place is known
  /// A finished recording whose server is away for so long fails, and at once when it is refused. A live one goes on
  /// trying.
  Instant patience = std::chrono::minutes(2);
};

/// What became of the points.
struct PublishReport {
  std::int64_t acknowledged = 0;              ///< number of the last point that the server acknowledged
  std::int64_t begun = 0;                     ///< number of the first point that was sent
  std::int64_t lines = 0;                     ///< acknowledged lines, also those that were sent again
  std::int64_t values = 0;                    ///< in them
  std::int64_t valueless = 0;                 ///< points without any value, which are not sent
  std::optional<PostAnswer> trouble;          ///< why nothing is acknowledged now
  std::optional<RunTimeError> fault;          ///< of the files: nothing more can be sent
  std::optional<RunTimeError> positionFault;  ///< the position could not be kept; sending goes on
};

enum class PublishState : std::uint8_t {
  kSending,   ///< Step is worth calling at once
  kWaiting,   ///< not before WakeAt: for points, or for the server
  kComplete,  ///< all points are acknowledged
  kFailed,    ///< the report says why
};

class Publisher {
 public:
  /// @param poster outlives the publisher
  Publisher(const PublishPorts& ports, PublishRequest request, LinePoster& poster);
  /// Keeps the position.
  ~Publisher();
  Publisher(const Publisher&) = delete;
  Publisher& operator=(const Publisher&) = delete;

  /// Called when the server does not take points any more, once until it does again; the report says why.
  std::function<void()> troubled;
  std::function<void()> recovered;

  /// Sends one batch at most. Throws nothing. @param goOn false ends a wait for the server
  PublishState Step(const std::function<bool()>& goOn);
  [[nodiscard]] Instant WakeAt() const noexcept { return wakeAt_; }
  /// The recorder ended a live recording: its points are in the chart file.
  void RecordingEnded() noexcept { ended_ = true; }
  /// Lets it wait for the server no longer. An attempt is made even so.
  void Hurry() noexcept { wakeAt_ = Instant{}; }
  /// Writes the position into its file; nothing before the recording was opened.
  void KeepPosition();

  [[nodiscard]] const PublishReport& Report() const noexcept { return report_; }
  /// How much of a finished recording was given, 0 to 1.
  [[nodiscard]] double Share() const noexcept { return feed_->Share(); }
  /// The recording still runs, or has no point yet.
  [[nodiscard]] bool Follows() const noexcept { return !history_ || feed_->Running(); }

 private:
  PublishState StepOrThrow(const std::function<bool()>& goOn);
  [[nodiscard]] bool Open(const std::function<bool()>& goOn);
  void Begin(const std::function<bool()>& goOn);
  void TakePosition();
  [[nodiscard]] bool Fill(const std::function<bool()>& goOn);
  void AddPoint(const FedPoint& point);
  [[nodiscard]] bool AtEnd(const std::function<bool()>& goOn);
  [[nodiscard]] bool StillRecorded();
  void CheckRecorder();
  void GoOnInNewJournal(const std::function<bool()>& goOn);
  void CheckMark() const;
  PublishState Judge(const PostAnswer& answer, const std::function<bool()>& goOn);
  PublishState Taken(const PostAnswer& answer, const std::function<bool()>& goOn);
  PublishState Trouble(const PostAnswer& answer);
  void GoBackTo(const SendPlace& place, const std::function<bool()>& goOn);
  PublishState Complete();
  PublishState Wait(Instant duration);
  [[nodiscard]] std::int64_t UtcNow() const;

  PublishPorts ports_;
  PublishRequest request_;
  LinePoster& poster_;
  std::unique_ptr<RecordingFeed> feed_;
  PublishReport report_;
  PublishState state_ = PublishState::kSending;
  bool ended_ = false;  ///< a live recorder said so
  bool gone_ = false;   ///< the journal is not there any more
  bool unsaved_ = false;
  Instant wakeAt_{};

  std::unique_ptr<FileLock> lock_;
  PublishPosition position_;
  std::optional<RowMoments> moments_;
  std::optional<PointLines> lines_;
  std::optional<SendHistory> history_;
  std::size_t columns_ = 0;
  SendPlace place_;          ///< after the batch
  std::int64_t moment_ = 0;  ///< of the batch's last point

  std::string batch_;
  std::int64_t batchPoints_ = 0;
  std::int64_t batchValues_ = 0;
  std::int64_t batchLimit_;
  Instant batchBegun_{};

  std::optional<std::int64_t> breaks_;  ///< of the poster, at the last acknowledgement without a failure since
  int failures_ = 0;                    ///< in a row
  Instant troubledSince_{};
  Instant lastSaved_{};
  Instant lastPoint_{};  ///< when the running recording gave one
  Instant wentBack_{};   ///< for a break that only a new connection showed
};

}  // namespace chartproject
