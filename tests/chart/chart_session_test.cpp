// Whole sessions in the chart window, held against texts that were read.
#include "chart/chart_session.h"

namespace chartproject {
namespace {

TEST_F(ChartSession, EachLanguage) {
  Begin("chart_languages");
  brief = true;
  Put("60", 60);
  for (const auto& [language, name] :
       {std::pair(Language::kPortuguese, "Portuguese"), std::pair(Language::kEnglish, "English"),
        std::pair(Language::kSpanish, "Spanish")}) {
    component.language = language;
    Step(name);
    Show([&](ChartForm& form) {
      LookAt(form);
      transcript->Add(MenuInWords(form.mscChart1.ContextMenu(), ""));
      Say("layout", LayoutOf(form));
      Play(form);
    });
    LookOutside();
    transcript->Listen();
  }
}

TEST_F(ChartSession, KeysMenuAndSmallWindows) {
  Begin("chart_actions");
  brief = true;
  Put("1000", 1000);
  fakes.files.Put(kFile, "Start Date=31/01/2026\r\nStart Time=08:00:00\r\n" + fakes.files.Bytes(kFile));
  fakes.files.Put(std::string(kFile) + ".readings",
                  "[CHART READINGS]\r\nStart Date=31/01/2026\r\nStart Time=08:00:00\r\nEnd Date=\r\nEnd Time=\r\n"
                  "Points=1000\r\n[FAILED]\r\n1 P003 30 34 5 no-answer\r\n[PACE]\r\nAsked=1000\r\nShortest=1000\r\n"
                  "Mean=2000\r\nLongest=3000\r\nLatest=99000\r\n[TIMES]\r\nWithin=5\r\n1 0\r\n1000 "
                  "1998000\r\n[SOURCE]\r\nDrives=simulated\r\n");
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Play(form);
  });
  LookOutside();
}

TEST_F(ChartSession, TypesSwitchesAndScales) {
  Begin("chart_switches");
  Put("60", 60);
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Play(form);
    fakes.dialogs.answers = {box_answer::kYes};
  });
  LookOutside();
  component.settings.intChartType = 9;
  component.settings.strGrid = "?";
  fakes.settings.values["frmChart"] = {{"Axis", "Elapsed"}, {"Lanes", "Yes"},  {"Overview", "No"},
                                       {"Left", "300"},     {"Width", "9000"}, {"Top", "99999"}};
  for (const char* title : {"stored settings, some of which name nothing", "the place that the user gave it"}) {
    Step(title);
    Show([&](ChartForm& form) {
      LookAt(form);
      Say("layout", LayoutOf(form).substr(0, 40));
      form.PlaceChangedByUser(300, 450, 15000, 12000);
    });
  }
  transcript->Listen();
}

TEST_F(ChartSession, MouseAndWheel) {
  Begin("chart_mouse");
  Put("500", 500);
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Play(form);
  });
  transcript->Listen();
}

TEST_F(ChartSession, ScrollingAndDamagedFiles) {
  Begin("chart_files");
  brief = true;
  component.settings.strGrid = "Yes";
  fakes.files.Put(std::string(kFile) + ".readings", "[CHART READINGS]\r\n100 x\r\n");
  asked = [](Form& window) { window.CloseByUser(); };
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"100", 100, "2", ""},       {"10", 12, "2", ""},      {"20", 12, "2", ""},
      {"many", 40, "2", ""},       {"40", 40, "7", ""},      {"0", 0, "1", ""},
      {"30", 26, "2", "broken"},   {"30", 3, "2", "broken"}, {"60", 58, "4", "' note\r\n\r\n08:00:01#1#--#run###"},
      {"2000000000", 70, "3", ""}, {"26", 26, "1", ""},      {"1000", 25, "2", ""},
      {"10", 100, "2", ""},        {"40", 100, "2", ""},     {"30", 30, "2", "\r\n' end\r\n"}};
  for (const auto& [points, rows, parameters, end] : cases) {
    Put(points, rows, parameters);
    fakes.files.Append(kFile, end);
    Step(std::string("N ") + points + ", rows " + std::to_string(rows) + ", P " + parameters + ", then " + end);
    Show([&](ChartForm& form) {
      LookAt(form);
      for (const char* step : {"key End", "sldPointsPerDivision=2", "sldPointsPerDivision=1310",
                               "sldPointsPerDivision=1", "hsbGraph=0", "cmdExport"}) {
        Do(form, step);
      }
    });
  }
  Put("60", 60);
  Show([&](ChartForm& form) {
    brief = false;
    for (const char* step : {"hsbGraph=20", "cursor 1 21", "cursor 2 25", "key S"}) Do(form, step);
    Put("50", 49, "1");
    fakes.files.Append(kFile, "08:00:00#7#####\r\n");
    transcript->Add("another file of the name");
    for (const char* step : {"key Right", "cursor 1 21", "cursor 2 25"}) Do(form, step);
    brief = true;
    fakes.files.Delete(kFile);
    transcript->Add("no file");
    for (const char* step : {"key Right", "wheel -1 300 100", "cmdExport", "tmrFollow"}) Do(form, step);
    Put("60", 60, "1", "07");
    transcript->Add("a file of another drive");
    Do(form, "key Right");
  });
  for (const char* drive : {"31", "x", "07"}) {
    Put("9", 9, "1", drive);
    Step(std::string("drive ") + drive);
    Show([](ChartForm&) {});
    transcript->Listen();
  }
  for (const char* text : {"", "Drive Address=01\r\nNumber of Points=5\r\n",
                           "[INFO]\r\nDrive Address=01\r\nPXXX1=1e400\r\nNumber of Parameters=1\r\nNumber of "
                           "Points=1\r\n[TIME/CONTENT]\r\n#5#####"}) {
    Step("a file of " + std::to_string(std::string_view(text).size()) + " bytes");
    fakes.files.Put(kFile, text);
    Show([&](ChartForm& form) { LookAt(form); });
  }
  Step("no names of parameters");
  Put("9", 9);
  fakes.files.Break("read", error_number::kPermissionDenied, "/drivers");
  Show([&](ChartForm& form) { LookAt(form); });
  fakes.files.Mend();
  Step("no file");
  fakes.files.Delete(kFile);
  Show([](ChartForm&) {});
  transcript->Listen();
  LookOutside();
}

TEST_F(ChartSession, LongReadings) {
  Begin("chart_reading");
  brief = true;
  Put("100000", 100000);
  perBlock = std::chrono::milliseconds(90);
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    int reports = 0, stopAt = 0;
    const auto busy = [&] {
      transcript->Add(form.reading.lblStatus.Caption() + " pointer " +
                      std::to_string(static_cast<int>(form.Pointer())));
      for (const char* what :
           {"key Ctrl+G", "key Ctrl+F", "key Ctrl+P", "key Ctrl+S", "key Ctrl+Right", "key N", "cmdExport", "cmdPrint",
            "tmrSurvey", "tmrFollow", "sldPointsPerDivision=3", "hsbGraph=5"})
        Use(form, what);
      fakes.keyboard.escape = ++reports == stopAt;
    };
    fakes.forms.onKeepAlive = busy;
    const auto stop = [&](int report, const char* what) {
      reports = 0;
      stopAt = report;
      Do(form, what);
    };
    stop(1, "hsbGraph=32742");
    fakes.forms.onKeepAlive = nullptr;
    Do(form, "hsbGraph=32742");
    fakes.forms.onKeepAlive = busy;
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 1);
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 100000);
    for (const int report : {2, 9}) stop(report, "key S");
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 99000);
    for (const int report : {1, 9}) stop(report, "key Ctrl+C");
    stop(1, "key Ctrl+F");
    stop(9, "key N");
    stop(1, "key Shift+N");
    stop(3, "key Ctrl+P");
    stop(2, "cmdExport");
    fakes.forms.onKeepAlive = [&] { Use(form, "cmdOK"); };
    Do(form, "cmdExport");
  });
  for (const char* what : {"hsbGraph=2", "cmdOK"}) {
    Step(std::string("in a long jump ") + what);
    Show([&](ChartForm& form) {
      fakes.forms.onKeepAlive = [&, what] { Use(form, what); };
      Do(form, "hsbGraph=32742");
    });
  }
}

TEST_F(ChartSession, Outputs) {
  Begin("chart_outputs");
  Put("60", 60);
  fakes.files.Append(kFile, "08:00:09#1,5#\xE9####\r\nrubbish\r\n");
  fakes.files.Put("/data/old.png", "\x89PNG\r\n\x1A\n");
  fakes.files.Put("/data/other.PNG", "[INFO]");
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Play(form, 3);
    for (const char* name : {"/data/new", "/data/old.png", "/data/other.PNG", kFile}) {
      for (const std::int16_t answer : {box_answer::kNo, box_answer::kYes}) {
        fakes.dialogs.fileAnswer = name;
        fakes.dialogs.answers = {answer};
        Do(form, "key Ctrl+S");
        transcript->Add(std::string(name) + " holds " + fakes.files.Bytes(name).substr(0, 20) +
                        fakes.files.Bytes(name + std::string(".png")));
      }
    }
    fakes.dialogs.fileAnswer.reset();
    Do(form, "key Ctrl+S");
    const OpenFileRequest& request = fakes.dialogs.fileRequests.back();
    transcript->Add(request.initialFolder + " " + request.filter + " " + std::to_string(request.flags));
    Play(form, 6);
    const std::string line(90, 'x');
    std::string lines;
    for (int i = 0; i < 20; ++i) lines += "line " + std::to_string(i) + (i % 9 == 0 ? line : "") + "\n";
    longTexts = {{"TITLE", line + line}, {"REMARK", lines}};
    Play(form, 2);
    fakes.printer.declined = true;
    Do(form, "key Ctrl+P");
    fakes.printer.declined = false;
    fakes.dialogs.answers = {box_answer::kYes};
    Do(form, "menu Print");
  });
  LookOutside();
  transcript->Listen();
}

TEST_F(ChartSession, SlicesOfMorePointsThanAChartHasRows) {
  Begin("chart_wide");
  Put("40000", 40000);
  fakes.locale.UseComma();
  Show([&](ChartForm& form) {
    transcript->Know(form);
    Play(form, 20);
    brief = true;
    Do(form, "key Ctrl+P");
  });
  Step("a line that is longer than what is read at once");
  Put("40001", 40000);
  fakes.files.Append(kFile, "08:00:00#1#2##" + std::string(150'000, 'x') + "###\r\n08:00:00#3#4####\r\n");
  Show([&](ChartForm& form) {
    for (const char* step : {"key F", "tmrSurvey"}) Do(form, step);
  });
}

}  // namespace
}  // namespace chartproject
