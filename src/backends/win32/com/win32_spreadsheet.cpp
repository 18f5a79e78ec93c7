// Workbook, sheets and cells of "Excel.Application", by the names of its published object model.
#include "backends/win32/com/win32_spreadsheet.h"

#include "backends/win32/com/automation_call.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

class ExcelApplication : public SpreadsheetApplication {
 public:
  explicit ExcelApplication(ComRef<IDispatch> application) : application_(std::move(application)) {}

  void AddWorkbook() override {
    workbook_ = client_.Fetch(Workbooks().Get(), {L"Add"});
    sheet_.Reset();
  }
  int SheetCount() override {
    ComVariant count = client_.Call(Sheets().Get(), {L"Count"});
    if (FAILED(VariantChangeType(count.Get(), count.Get(), 0, VT_I4))) {
      throw RunTimeError(error_number::kTypeMismatch, Text::kSheetCountUnknown);
    }
    return count.Value().lVal;
  }
  void AddSheetAfter(int sheet) override {
    AutomationArguments arguments;
    arguments.push_back({L"after", ComVariant(Sheet(sheet))});
    client_.Call(Sheets().Get(), {L"Add"}, std::move(arguments));
  }
  void SetSheetName(int sheet, const std::string& name) override {
    client_.Set(Sheet(sheet), {L"Name"}, ComVariant(std::string_view(name)));
  }
  void WriteText(int sheet, int row, int column, std::string_view text) override {
    // The apostrophe is the application's mark for a text that may look like a number; it is not part of the value.
    client_.Set(Cell(sheet, row, column).Get(), value_, ComVariant("'" + std::string(text)));
  }
  void EnterValue(int sheet, int row, int column, std::string_view text) override {
    // What the application would take for a formula, or its own sign for a text, is entered as what it reads as here.
    const bool special = !text.empty() && std::string_view("=+-@'\t\r").find(text[0]) != std::string_view::npos;
    const bool plain = client_.SpeaksUsersLocale() && !special;
    client_.Set(Cell(sheet, row, column).Get(), value_, plain ? ComVariant(text) : Entered(text, special));
  }
  std::string ReadValue(int sheet, int row, int column) override {
    ComVariant value = client_.Call(Cell(sheet, row, column).Get(), value_);
    if (value.Value().vt == VT_EMPTY || value.Value().vt == VT_NULL) return {};
    // By the user's locale, as the cell shows it.
    if (FAILED(VariantChangeTypeEx(value.Get(), value.Get(), LOCALE_USER_DEFAULT, 0, VT_BSTR))) {
      throw RunTimeError(error_number::kTypeMismatch, Text::kCellUnreadable);
    }
    return win32::BstrToUtf8(value.Value().bstrVal);
  }
  void SaveAs(const SaveAsArguments& save) override {
    AutomationArguments arguments;
    arguments.push_back({L"FileName", ComVariant(std::string_view(save.fileName))});
    arguments.push_back({L"FileFormat", ComVariant(save.fileFormat)});
    arguments.push_back({L"Password", ComVariant(std::string_view(save.password))});
    arguments.push_back({L"WriteResPassword", ComVariant(std::string_view(save.writeResPassword))});
    arguments.push_back({L"ReadOnlyRecommended", ComVariant(save.readOnlyRecommended)});
    arguments.push_back({L"CreateBackup", ComVariant(save.createBackup)});
    client_.Call(Required(workbook_.Get()), {L"SaveAs"}, std::move(arguments), DISPATCH_METHOD);
  }
  void Quit() override {
    sheet_.Reset();
    workbook_.Reset();
    client_.Call(application_.Get(), {L"quit"}, {}, DISPATCH_METHOD);
  }

 private:
  [[nodiscard]] static IDispatch* Required(IDispatch* object) {
    if (object == nullptr) throw RunTimeError(error_number::kObjectNotSet, Text::kNoWorkbook);
    return object;
  }
  [[nodiscard]] ComRef<IDispatch> Workbooks() { return client_.Fetch(application_.Get(), {L"workbooks"}); }
  [[nodiscard]] ComRef<IDispatch> Sheets() { return client_.Fetch(Required(workbook_.Get()), {L"sheets"}); }
  /// Cells are written sheet by sheet: the last sheet used is kept, which spares a call each.
  [[nodiscard]] IDispatch* Sheet(int number) {
    if (!sheet_ || sheetNumber_ != number) {
      sheet_ = client_.Fetch(Required(workbook_.Get()), {L"sheets"}, Positional(std::int32_t{number}));
      sheetNumber_ = number;
    }
    return sheet_.Get();
  }
  [[nodiscard]] ComRef<IDispatch> Cell(int sheet, int row, int column) {
    return client_.Fetch(Sheet(sheet), cells_, Positional(std::int32_t{row}, std::int32_t{column}));
  }

  /// What the user's locale reads a text as, for an application that would read it otherwise.
  /// @param marked what is not a number gets the application's sign for a text
  [[nodiscard]] static ComVariant Entered(std::string_view text, bool marked) {
    ComVariant value(text);
    ComVariant number;
    const HRESULT read = VariantChangeTypeEx(number.Get(), value.Get(), LOCALE_USER_DEFAULT, 0, VT_R8);
    if (SUCCEEDED(read)) return number;
    return marked ? ComVariant("'" + std::string(text)) : std::move(value);
  }

  AutomationClient client_;
  MemberName cells_{L"Cells"};
  MemberName value_{L"Value"};
  ComRef<IDispatch> application_;
  ComRef<IDispatch> workbook_;
  ComRef<IDispatch> sheet_;
  int sheetNumber_ = 0;
};

/// The class id of the application; nothing when it is not installed.
std::optional<CLSID> ApplicationClass() {
  CLSID id;
  if (FAILED(CLSIDFromProgID(L"Excel.Application", &id))) return std::nullopt;
  return id;
}

}  // namespace

std::unique_ptr<SpreadsheetApplication> Win32SpreadsheetApplications::AttachRunning() {
  const std::optional<CLSID> id = ApplicationClass();
  if (!id) return nullptr;
  ComRef<IUnknown> running;
  if (FAILED(GetActiveObject(*id, nullptr, running.Receive()))) return nullptr;
  ComRef<IDispatch> application;
  if (FAILED(running->QueryInterface(IID_IDispatch, application.ReceiveUntyped()))) return nullptr;
  return std::make_unique<ExcelApplication>(std::move(application));
}

std::unique_ptr<SpreadsheetApplication> Win32SpreadsheetApplications::Create(const std::string& /*targetName*/,
                                                                             const FileRights& /*rights*/) {
  const std::optional<CLSID> id = ApplicationClass();
  if (!id) return nullptr;
  ComRef<IDispatch> application;
  constexpr DWORD kAnywhere = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;
  if (FAILED(CoCreateInstance(*id, nullptr, kAnywhere, IID_IDispatch, application.ReceiveUntyped()))) return nullptr;
  return std::make_unique<ExcelApplication>(std::move(application));
}

}  // namespace chartproject::win32
