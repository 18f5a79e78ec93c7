// A spreadsheet application for the tests: an object of any name with any members, which writes down what is done.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/win32/com/com_ref.h"

namespace chartproject::testing {

/// What all objects of one fake application share.
struct FakeExcelLog {
  std::vector<std::string> calls;            ///< "workbooks.Add", "sheets(1).Cells(2,1).Value='x" and so on
  std::map<std::string, std::string> cells;  ///< values by path
  std::string failing;                       ///< the call that raises error 1004
  int objects = 0;                           ///< alive
};

/// The application object, with one reference.
[[nodiscard]] IDispatch* MakeFakeExcel(FakeExcelLog& log);

/// Installs the application on the machine while it lives: ProgID "Excel.Application" and a class factory.
class FakeExcelInstallation {
 public:
  explicit FakeExcelInstallation(FakeExcelLog& log);
  ~FakeExcelInstallation();
  FakeExcelInstallation(const FakeExcelInstallation&) = delete;
  FakeExcelInstallation& operator=(const FakeExcelInstallation&) = delete;
  /// Lists an instance as a running one; the cookie for RevokeActiveObject.
  DWORD Run();

 private:
  FakeExcelLog& log_;
  win32::ComRef<IUnknown> factory_;
  DWORD cookie_ = 0;
};

}  // namespace chartproject::testing
