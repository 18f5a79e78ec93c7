// What the drives' rules make of every kind of value, model and failure, as tables that were read.
#include <sstream>

#include "drive/display_value.h"
#include "drive/drive_context.h"
#include "drive/drive_models.h"
#include "drive/drive_status.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "drive/unit_codes.h"
#include "gtest/gtest.h"
#include "platform/run_time_error.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

struct DriveAnswers : ::testing::Test {
  FakePorts fakes;
  FakePlant plant;
  DriveContext context{fakes.ports, fakes.forms, plant};
  std::ostringstream out;

  template <class Answer>
  void Tell(const Answer& answer) {
    try {
      out << answer();
    } catch (const RunTimeError& error) {
      out << "error " << error.Number() << " <" << error.Description() << '>';
    }
  }
};

const std::string kModels[] = {"KRA-02", "KRD-(A)03", "KRA-03", "KRA-04", "KRA-05", "KRA-06",  "KRA-07",
                               "KRA-08", "KRA-09",    "KRA-10", "LMX-01", "TSR-03", "TSR-04",  "PVE-04",
                               "TSR-05", "TSR-06",    "KRD-04", "PVE-05", "kra-09", " KRA-09", ""};

TEST_F(DriveAnswers, OfModels) {
  context.status.strStatus = "RUN";
  for (const std::string& model : kModels) {
    out << '[' << model << "] code " << ModelCode(model) << (ShowsValues(model) ? " shows values" : "");
    if (const DriveModel* found = FindModelIn("a " + model + " of ours")) out << ", in a text " << found->name;
    for (const int parameter : {0, 5, 6, 13, 14, 15, 16, 17, 18, 59, 60, 65, 66, 155}) {
      out << "\n  P" << ParameterDigits(parameter) << ':';
      for (const char* value : {"12.5", "768", "-3", "13106", "13106.6", "13107", "32767", "32768", "off", ""}) {
        out << ' ';
        Tell([&] { return '<' + DisplayValue(context, static_cast<std::int16_t>(parameter), value, model) + '>'; });
      }
    }
    out << '\n';
  }
  ExpectTranscript("drive_models", out.str());
}

TEST_F(DriveAnswers, OfColumns) {
  context.driveLink = plant.Create(context.linkWait);
  context.currentDrive = 4;
  for (std::int16_t unit = 0; unit < kParameterCount; ++unit) {
    context.parameterTables.At(4).At(unit).unitCode = static_cast<std::int16_t>(unit % 78);
  }
  plant.failure = {ReadFailure::kChecksum, "CRC"};
  const std::map<int, std::string> answers[] = {
      {},
      {{1, "7"}, {2, "8"}, {40, "9"}, {6, "768"}, {12, "AI"}, {32, "1.5"}, {33, "2.5"}, {5, "60"}, {208, "-0.125"}},
      {{1, "7"}, {2, "8"}, {40, "9"}, {32, "1.5"}, {33, "2.5"}, {5, "60"}, {14, "1"}, {210, "2.5"}, {529, "-32768"}},
      {{1, "7"}, {2, "8"}, {40, "9"}, {32, "1.5"}, {14, "2"}, {208, "30"}, {210, "32767.5"}, {529, "-32769"}}};
  for (const char* model : {"KRA-09", "KRA-08", "KRD-04", "KRA-05", "KRA-02", "TSR-03"}) {
    context.driveTable.At(4).Type = model;
    for (const auto& texts : answers) {
      plant.texts = texts;
      for (const std::int16_t parameter : {1, 2, 6, 12, 32, 33, 40, 71, 76}) {
        plant.steps.clear();
        out << model << ' ' << ParameterName(parameter) << ": ";
        Tell([&] {
          const ColumnReading reading = ReadColumn(context, parameter);
          return '<' + reading.text + "> " + FailureText(Language::kEnglish, reading.outcome);
        });
        for (const std::string& step : plant.steps) out << "; " << step;
        out << '\n';
      }
    }
  }
  ExpectTranscript("drive_columns", out.str());
}

TEST_F(DriveAnswers, OfStatusWordsUnitsAndFailures) {
  DriveStatus status;
  for (const double word :
       {0.0,     256.0,   512.0,   766.5,   767.5,   768.0,   1024.0,  2048.0,  2560.0,   4096.0, 8192.0, 8960.0,
        32768.0, 32773.0, 32781.0, 32782.0, 32785.0, 32800.0, 32809.0, 41741.0, -32763.0, 3.0,    2.2e9}) {
    out << word << ": ";
    Tell([&] { return DecodeStatus(status, word), status.strStatus; });
    out << " bits " << status.bBit8 << status.bBit9 << status.bBit10 << status.bBit11 << status.bBit12 << status.bBit13
        << ' ' << status.bError << status.bShowError << " code " << status.intErrorCode << '\n';
  }
  for (const char* family : {"CURRENT", "direct", "DividedBy1000", "DividedBy100", "DividedBy10", "Frequency", "Gain",
                             "Percentage", "Power", "Time", "Voltage", "13bitsRPM"}) {
    out << family << ':';
    for (const char* variant : {"", "F", "F0", "F1", "F2", "F3", "F4", "F5", "F6", "F5 "}) {
      out << ' ' << FindUnitCode(std::string(family) + variant);
    }
    out << '\n';
  }
  for (const char* single : {"DependsOnP210", "dependsonp529", "DI1DI8", "RL1RL2RL3DO1DO2", "DI1", ""})
    out << single << ": " << FindUnitCode(single) << '\n';
  for (std::int16_t code = -3; code < 12; ++code) {
    const ReadOutcome outcome = OutcomeOfStatus(code, "detail");
    out << "status " << code << " is " << static_cast<int>(outcome.failure) << " and again "
        << StatusOfOutcome(outcome);
    for (const Language language : {Language::kPortuguese, Language::kEnglish, Language::kSpanish}) {
      out << "; " << FailureText(language, outcome);
      if (code >= 0 && code < 9) out << ", " << FailureText(language, {static_cast<ReadFailure>(code), "x"});
    }
    if (code >= 0 && code < 9) out << "; kind gives " << StatusOfOutcome({static_cast<ReadFailure>(code), "12"});
    out << '\n';
  }
  ExpectTranscript("drive_words", out.str());
}

TEST_F(DriveAnswers, OfADriverFile) {
  context.settings.strLanguage = "English";
  context.settings.strDrivers = "C:\\d";
  context.settings.strHelps = "C:\\h";
  context.helpFile = "help.hlp";
  context.driveTable.At(7).Type = "KRA-09";
  const std::string lines =
      "Type=x\r\n'#P001#note############\n[a]\n\n(1)=one\n (2)=two "
      "\n(15)=far\n#P000#Zero#t3#1.5#t5#CurrentF0#yes#t8#1#2#3.5#t12##\n"
      "#P001#One####DI1DI8#No#######\n###more#2.5##########\n####2,5##########\n###three###########\n#P999#"
      "Last####Rpm########\n"
      "#7#Seven############\n#P001##########4###\n#P002#Extra############x\n#P003#A#B\nfree "
      "text\n#P006#A###########x#\n#P004#Customer=x############\n";
  for (const bool comma : {false, true}) {
    if (comma) fakes.locale.UseComma();
    for (const char* more :
         {"", "#P1000#A############", "#PP5#A############", "#P5#A#######low#####", "#P99999#A############"}) {
      fakes.files.Put("C:\\d\\KRA09E.wcd", lines + more);
      context.language = comma ? Language::kSpanish : Language::kPortuguese;
      out << "== " << more << (comma ? " with commas\n" : "\n");
      Tell([&] { return LoadDriverFile(context, 7), "loaded"; });
      out << '\n';
      for (const MessageBoxRequest& box : fakes.dialogs.boxes) {
        out << box.style << ' ' << box.helpFile << ' ' << box.helpContext << ' ' << box.prompt << '\n';
      }
      fakes.dialogs.boxes.clear();
    }
    const ParameterTable& table = context.parameterTables.At(7);
    for (int parameter = 0; parameter < kParameterCount; ++parameter) {
      const ParameterEntry& entry = table.At(parameter);
      if (!entry.present && entry.name.empty()) continue;
      out << ParameterName(parameter) << ' ' << entry.present << entry.secondPresent << '|' << entry.name << '|'
          << entry.text3 << '|' << entry.text4 << '|' << entry.text5 << '|' << entry.unitCode << '|' << entry.yesFlag
          << '|' << entry.text8 << '|' << entry.limit9 << '|' << entry.limit10 << '|' << entry.limit11 << '|'
          << entry.text12 << '\n';
    }
    for (const std::string& text : table.numberedTexts) {
      if (!text.empty()) out << text << '\n';
    }
  }
  std::string faults;
  for (int line = 0; line < 12; ++line) faults += "#\n";
  fakes.files.Put("C:\\d\\KRA09E.wcd", faults);
  LoadDriverFile(context, 7);
  for (const std::string& prompt : fakes.dialogs.TakePrompts()) out << prompt << '\n';
  for (const char* version : {"2.40", "1,05", "2.4.1", "7.4,1", "33", "3", ""}) {
    for (const std::string& name : DriverFileNames("KRA09", version, "E.wcd")) out << name << ' ';
    out << '\n';
  }
  ExpectTranscript("drive_driver_file", out.str());
}

}  // namespace
}  // namespace chartproject
