// Rows go through libxlsxwriter's constant-memory mode.
#include "backends/spreadsheet/xlsx_writer.h"

#include <xlsxwriter.h>

#include <cerrno>

#include "backends/posix/part_file.h"
#include "backends/posix/posix_error.h"
#include "backends/posix/posix_path.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

class XlsxWriter : public WorkbookWriter {
 public:
  XlsxWriter(const std::string& targetName, const FileRights& rights)
      : part_(targetName, rights), folder_(PosixPath(targetName)) {
    folder_.erase(folder_.find_last_of('/') == std::string::npos ? 0 : folder_.find_last_of('/'));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder_.empty() ? nullptr : folder_.data();
    options.use_zip64 = LXW_TRUE;
    workbook_ = workbook_new_opt(part_.OpenName().c_str(), &options);
    if (workbook_ == nullptr) throw FileError(ENOMEM, part_.Target());
  }
  ~XlsxWriter() override {
    if (workbook_ != nullptr) lxw_workbook_free(workbook_);
  }
  XlsxWriter(const XlsxWriter&) = delete;
  XlsxWriter& operator=(const XlsxWriter&) = delete;

  void BeginSheet(const std::string& name) override {
    sheet_ = workbook_add_worksheet(workbook_, name.c_str());
    if (sheet_ == nullptr) throw RunTimeError(error_number::kApplicationDefined, Text::kSheetRefused, {name});
  }

  void WriteRow(int row, std::span<const SheetCell> cells) override {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const auto at = static_cast<lxw_row_t>(row - 1);
      const auto column = static_cast<lxw_col_t>(i);
      lxw_error result = LXW_NO_ERROR;
      if (cells[i].kind == SheetCell::Kind::kNumber) {
        result = worksheet_write_number(sheet_, at, column, cells[i].number, nullptr);
      } else if (cells[i].kind == SheetCell::Kind::kText) {
        result = worksheet_write_string(sheet_, at, column, cells[i].text.c_str(), nullptr);
      }
      Check(result);
    }
  }

  void Save(const std::string& /*fileName*/) override {
    errno = 0;
    lxw_workbook* workbook = workbook_;
    workbook_ = nullptr;  // closing frees it, failed or not
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
};

}  // namespace

std::unique_ptr<WorkbookWriter> MakeXlsxWriter(const std::string& targetName, const FileRights& rights) {
  return std::make_unique<XlsxWriter>(targetName, rights);
}

}  // namespace chartproject
