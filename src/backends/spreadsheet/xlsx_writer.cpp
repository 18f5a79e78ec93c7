// Rows go through libxlsxwriter's constant-memory mode.
#include "backends/spreadsheet/xlsx_writer.h"

#include <fcntl.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <cerrno>

#include "backends/posix/files/part_file.h"
#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::size_t kLongestText = 32767;

/// Keeps the library from reporting failures on standard error too: the user gets our message.
class SilentErrors {
 public:
  SilentErrors() : kept_(dup(STDERR_FILENO)) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (kept_ >= 0 && nowhere >= 0) dup2(nowhere, STDERR_FILENO);
    if (nowhere >= 0) close(nowhere);
  }
  ~SilentErrors() {
    if (kept_ < 0) return;
    dup2(kept_, STDERR_FILENO);
    close(kept_);
  }
  SilentErrors(const SilentErrors&) = delete;
  SilentErrors& operator=(const SilentErrors&) = delete;

 private:
  int kept_;
};

class XlsxWriter : public WorkbookWriter {
 public:
  XlsxWriter(const std::string& targetName, const FileRights& rights)
      : part_(targetName, rights), folder_(PosixPath(targetName)) {
    folder_.erase(folder_.find_last_of('/') == std::string::npos ? 0 : folder_.find_last_of('/'));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder_.empty() ? nullptr : folder_.data();
    options.use_zip64 = LXW_TRUE;
    const SilentErrors silent;
    workbook_ = workbook_new_opt(part_.OpenName().c_str(), &options);
    if (workbook_ == nullptr) throw FileError(ENOMEM, part_.Target());
  }
  ~XlsxWriter() override {
    if (workbook_ != nullptr) lxw_workbook_free(workbook_);
  }
  XlsxWriter(const XlsxWriter&) = delete;
  XlsxWriter& operator=(const XlsxWriter&) = delete;

  [[nodiscard]] std::size_t LongestText() const noexcept override { return kLongestText; }

  void BeginSheet(const std::string& name) override {
    sheet_ = workbook_add_worksheet(workbook_, name.c_str());
    if (sheet_ == nullptr) throw RunTimeError(error_number::kApplicationDefined, Text::kSheetRefused, {name});
    for (std::size_t c = 0; c < kColumnWidths.size(); ++c) {
      const auto column = static_cast<lxw_col_t>(c);
      Check(worksheet_set_column(sheet_, column, column, kColumnWidths.at(c), nullptr));
    }
    first_ = labels_ == nullptr;
    if (!first_) return;
    labels_ = workbook_add_format(workbook_);
    format_set_bold(labels_);
    worksheet_freeze_panes(sheet_, kLabelRow, 0);
  }

  void WriteRow(int row, std::span<const SheetCell> cells) override {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const auto at = static_cast<lxw_row_t>(row - 1);
      const auto column = static_cast<lxw_col_t>(i);
      lxw_error result = LXW_NO_ERROR;
      if (cells[i].kind == SheetCell::Kind::kNumber) {
        result = worksheet_write_number(sheet_, at, column, cells[i].number, nullptr);
      } else if (cells[i].kind == SheetCell::Kind::kText) {
        result = worksheet_write_string(sheet_, at, column, cells[i].text.c_str(),
                                        first_ && row == kLabelRow ? labels_ : nullptr);
      }
      Check(result);
    }
  }

  void Save(const std::string& /*fileName*/) override {
    errno = 0;
    lxw_workbook* workbook = workbook_;
    workbook_ = nullptr;  // closing frees it, failed or not
    const SilentErrors silent;
    Check(workbook_close(workbook));
    part_.Commit();
  }

 private:
  void Check(lxw_error result) const {
    if (result == LXW_NO_ERROR) return;
    if (errno == ENOSPC || errno == EACCES || errno == ENOENT || errno == EROFS) throw FileError(errno, part_.Target());
    throw RunTimeError(error_number::kDeviceIo, part_.Target() + ": " + lxw_strerror(result));
  }

  PartFile part_;
  std::string folder_;
  lxw_workbook* workbook_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* labels_ = nullptr;  // made with the first sheet
  bool first_ = false;
};

}  // namespace

std::unique_ptr<WorkbookWriter> MakeXlsxWriter(const std::string& targetName, const FileRights& rights) {
  return std::make_unique<XlsxWriter>(targetName, rights);
}

}  // namespace chartproject
