// Printer and spreadsheet application in memory, which record the requests.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/printer.h"
#include "platform/spreadsheet.h"

namespace chartproject {

/// An A4 page; a character is 0.5 points x size wide.
class FakePrinter : public Printer {
 public:
  struct Text {
    std::string text;
    double x, y;
    PrintFont font;
    int page = 1;
  };
  struct Picture {
    double x, y, width, height;
  };

  void ProposeFile(const std::string& name) override { proposed = name; }
  bool StartDocument(const std::string& title) override;
  PageArea Page() const override { return page; }
  double TextWidth(std::string_view text, const PrintFont& font) const override;
  void PrintText(std::string_view text, double x, double y, const PrintFont& font) override;
  double CurrentY() const override { return y_; }
  void NextLine() override;
  void PaintPicture(const Bitmap& picture, double x, double y, double width, double height) override;
  void PaintPictureFile(const std::string& fileName, double x, double y) override;
  void Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) override;
  void NextPage() override;
  void EndDocument() override { ++documentsPrinted; }
  void AbandonDocument() noexcept override { ++documentsAbandoned; }

  PageArea page{21.0, 29.7, 20.4, 29.1};
  bool declined = false;    ///< StartDocument answers false
  int failAfterTexts = -1;  ///< error 482 at that text
  int missingIcon = 0;      ///< error number that an icon raises; 0 paints it
  std::vector<Text> texts;
  std::vector<Picture> pictures;
  std::vector<Picture> drawings;                                        ///< boxes that were drawn into
  std::function<void(const std::function<void(Canvas&)>& paint)> draw;  ///< offers a canvas; may be empty
  std::vector<std::string> icons;
  int pages = 0;                ///< of the last document
  std::string title, proposed;  ///< of it, and of the file that it may go into
  int documentsPrinted = 0;
  int documentsAbandoned = 0;

 private:
  double y_ = 0;
  double lastPoints_ = 12;
};

/// The calls that the fake spreadsheet application received; outlives the application objects.
struct FakeSpreadsheetLog {
  std::vector<std::string> calls;            ///< all but the cell calls
  std::map<std::string, std::string> cells;  ///< "sheet!row,column" to text; numbers entered are marked "=1.5"
  std::vector<std::string> sheetNames;
  int failAtRow = -1;  ///< error 1004 at that row
};

class FakeSpreadsheets : public SpreadsheetApplications {
 public:
  std::unique_ptr<SpreadsheetApplication> AttachRunning() override;
  std::unique_ptr<SpreadsheetApplication> Create(const std::string& targetName, const FileRights& rights) override;
  std::optional<WorkbookLimits> Limits(const std::string& /*targetName*/) const override { return limits; }

  bool running = false;
  bool installed = true;
  std::optional<WorkbookLimits> limits;
  FakeSpreadsheetLog log;
};

}  // namespace chartproject
