// Every call of the absent printer reports that there is no printer.
#include "backends/headless/absent_devices.h"

#include "platform/run_time_error.h"

namespace chartproject {

namespace {
[[noreturn]] void Refuse() {
  throw RunTimeError(error_number::kPrinter, Text::kBuiltWithoutPrinting);
}
}  // namespace

bool NoPrinter::StartDocument(const std::string& /*title*/) {
  Refuse();
}
PageArea NoPrinter::Page() const {
  Refuse();
}
double NoPrinter::TextWidth(std::string_view /*text*/, const PrintFont& /*font*/) const {
  Refuse();
}
void NoPrinter::PrintText(std::string_view /*text*/, double /*x*/, double /*y*/, const PrintFont& /*font*/) {
  Refuse();
}
double NoPrinter::CurrentY() const {
  Refuse();
}
void NoPrinter::NextLine() {
  Refuse();
}
void NoPrinter::PaintPicture(const Bitmap& /*picture*/, double /*x*/, double /*y*/, double /*width*/,
                             double /*height*/) {
  Refuse();
}
void NoPrinter::PaintPictureFile(const std::string& /*fileName*/, double /*x*/, double /*y*/) {
  Refuse();
}
void NoPrinter::Draw(double /*x*/, double /*y*/, double /*width*/, double /*height*/,
                     const std::function<void(Canvas&)>& /*paint*/) {
  Refuse();
}
void NoPrinter::NextPage() {
  Refuse();
}
void NoPrinter::EndDocument() {
  Refuse();
}

}  // namespace chartproject
