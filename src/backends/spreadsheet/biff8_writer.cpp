// Rows go to an unnamed working file at once; Save puts the workbook's head before them, for the head lists where each
// sheet begins, and stores the whole as the stream "Workbook" of a compound file.
#include "backends/spreadsheet/biff8_writer.h"

#include <fcntl.h>
#include <gsf/gsf.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "backends/posix/files/part_file.h"
#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "backends/spreadsheet/biff8_records.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kRowsInBlock = 32;  // readers expect the descriptions of up to 32 rows before their cells
constexpr std::size_t kCopyBytes = 1 << 18;

struct FileCloser {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
struct ObjectReleaser {
  void operator()(void* object) const noexcept { g_object_unref(object); }
};
using OutputObject = std::unique_ptr<GsfOutput, ObjectReleaser>;

/// A file without a name: it vanishes however the program ends.
std::unique_ptr<std::FILE, FileCloser> OpenWorkingFile(const std::string& targetName) {
  std::string name = PosixPath(targetName) + ".XXXXXX";
  const int descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0) throw FileError(errno, targetName);
  unlink(name.c_str());
  return std::unique_ptr<std::FILE, FileCloser>(fdopen(descriptor, "w+b"));
}

class Biff8Writer : public WorkbookWriter {
 public:
  Biff8Writer(const std::string& targetName, const FileRights& rights)
      : rows_(OpenWorkingFile(targetName)), targetName_(targetName), rights_(rights) {}

  [[nodiscard]] std::size_t LongestText() const noexcept override { return biff8::kLongestText; }

  void BeginSheet(const std::string& name) override {
    FlushBlock();
    sheets_.push_back({name, {}, 0});
  }

  void WriteRow(int row, std::span<const SheetCell> cells) override {
    Sheet& sheet = sheets_.back();
    const auto index = static_cast<std::uint16_t>(row - 1);
    const auto columns = static_cast<std::uint16_t>(cells.size());
    biff8::AppendRow(blockRows_, index, columns);
    biff8::AppendCells(blockCells_, index, cells, sheets_.size() == 1 && row == kLabelRow);
    sheet.extent.rowEnd = static_cast<std::uint32_t>(row);
    sheet.extent.columnEnd = std::max(sheet.extent.columnEnd, columns);
    if (++rowsInBlock_ == kRowsInBlock) FlushBlock();
  }

  void Save(const std::string& fileName) override {
    FlushBlock();
    if (std::fflush(rows_.get()) != 0) throw FileError(errno, fileName);
    std::rewind(rows_.get());
    PartFile part(fileName, rights_);
    WriteContainer(part.OpenName(), fileName);
    part.Commit();
  }

 private:
  struct Sheet {
    std::string name;
    biff8::SheetExtent extent;
    std::uint64_t rowBytes;
  };

  void FlushBlock() {
    if (rowsInBlock_ == 0) return;
    for (std::string* bytes : {&blockRows_, &blockCells_}) {
      if (std::fwrite(bytes->data(), 1, bytes->size(), rows_.get()) != bytes->size())
        throw FileError(errno, targetName_);
      sheets_.back().rowBytes += bytes->size();
      bytes->clear();
    }
    rowsInBlock_ = 0;
  }

  /// Everything before the first sheet; the sheets' offsets follow from the sizes of what precedes them.
  [[nodiscard]] std::string Head() const {
    std::string head;
    biff8::AppendGlobals(head, sheets_.size());
    std::uint64_t offset = head.size();
    for (const Sheet& sheet : sheets_) offset += biff8::BoundSheetSize(sheet.name);
    std::string mark;
    biff8::AppendEnd(mark);
    offset += mark.size();
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
      biff8::AppendBoundSheet(head, static_cast<std::uint32_t>(offset), sheets_[i].name);
      std::string frame;
      biff8::AppendSheetBegin(frame, sheets_[i].extent);
      biff8::AppendSheetEnd(frame, i == 0);
      offset += frame.size() + sheets_[i].rowBytes;
    }
    if (offset > kLargestBiff8Workbook) throw RunTimeError(error_number::kApplicationDefined, Text::kWorkbookTooLarge);
    return head + mark;
  }

  void WriteContainer(const std::string& partName, const std::string& fileName) const {
    // Opened here: by name, the library would put another file in the part's place.
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(partName.c_str(), "wbe"));
    if (!file) throw FileError(errno, fileName);
    const OutputObject sink(gsf_output_stdio_new_FILE(partName.c_str(), file.get(), FALSE));
    if (!sink) throw FileError(ENOMEM, fileName);
    (void)file.release();  // closed by the sink
    errno = 0;
    const std::unique_ptr<GsfOutfile, ObjectReleaser> container(gsf_outfile_msole_new(sink.get()));
    const OutputObject stream(gsf_outfile_new_child(container.get(), "Workbook", FALSE));
    WriteStream(stream.get(), fileName);
    // A full disk shows only when the whole is closed.
    const auto close = [](GsfOutput* output) { return gsf_output_is_closed(output) || gsf_output_close(output); };
    const bool closed = close(stream.get()) && close(GSF_OUTPUT(container.get())) && close(sink.get());
    if (!closed) throw FileError(errno != 0 ? errno : EIO, fileName);
  }

  void WriteStream(GsfOutput* stream, const std::string& fileName) const {
    const auto write = [&](std::string_view bytes) {
      if (!gsf_output_write(stream, bytes.size(), reinterpret_cast<const guint8*>(bytes.data()))) {
        throw FileError(errno != 0 ? errno : EIO, fileName);
      }
    };
    write(Head());
    std::vector<char> buffer(kCopyBytes);
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
      std::string frame;
      biff8::AppendSheetBegin(frame, sheets_[i].extent);
      write(frame);
      for (std::uint64_t left = sheets_[i].rowBytes; left > 0;) {
        const std::size_t count =
            std::fread(buffer.data(), 1, std::min<std::uint64_t>(left, buffer.size()), rows_.get());
        if (count == 0) throw FileError(EIO, fileName);
        write({buffer.data(), count});
        left -= count;
      }
      frame.clear();
      biff8::AppendSheetEnd(frame, i == 0);
      write(frame);
    }
  }

  std::unique_ptr<std::FILE, FileCloser> rows_;
  std::string targetName_;
  FileRights rights_;
  std::vector<Sheet> sheets_;
  std::string blockRows_;
  std::string blockCells_;
  int rowsInBlock_ = 0;
};

}  // namespace

std::unique_ptr<WorkbookWriter> MakeBiff8Writer(const std::string& targetName, const FileRights& rights) {
  return std::make_unique<Biff8Writer>(targetName, rights);
}

}  // namespace chartproject
