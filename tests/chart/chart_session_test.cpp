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
    transcript->Step(name);
    Show([&](ChartForm& form) {
      LookAt(form);
      transcript->Add(MenuInWords(form.mscChart1.ContextMenu(), ""));
      Say("layout", LayoutOf(form));
      Do(form, {"key Ctrl+Right", "key Ctrl+Shift+Right", "key S", "mouse hover 300 200"});
      Answer({{"cboUnit=1", "txtPlace=?", "cmdOK", "cmdCancel"}, {"cboWhat=3", "cmdNext"}, {"txtTitle=T", "cmdPrint"}});
      Do(form, {"key Ctrl+G", "key Ctrl+F", "key Ctrl+P", "cmdPrint"});
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
    Do(form, {"tmrSurvey",     "key S",           "key Ctrl+C",  "key Esc",
              "key Backspace", "key 3",           "key Shift+F", "key +",
              "key +",         "key -",           "key Ctrl+0",  "key Backspace",
              "key Right",     "key Shift+Right", "key Left",    "key Page Down",
              "key Page Up",   "key End",         "key Home",    "key E",
              "key T",         "key P",           "key L",       "key 2",
              "key I",         "key O",           "key A",       "key K",
              "picPXXX2",      "key L",           "key I",       "menu Automatic range of values",
              "menu Grid",     "menu Line",       "menu Marker", "menu Overview",
              "menu Overview"});
    Do(form, {"key Ctrl+Right", "key Ctrl+Right", "key Ctrl+Left", "key Ctrl+Shift+Left", "key Ctrl+Shift+Left",
              "key S", "key Ctrl+C", "key End", "key Ctrl+Shift+Right", "key S", "key S", "key Esc", "key Esc"});
    Answer({{"txtPlace=500", "cmdOK"},
            {"txtPlace=0", "cmdOK", "txtPlace=1001", "cmdOK", "txtPlace=", "cmdOK", "cboUnit=1", "txtPlace=00:33:18",
             "cmdOK"},
            {"cboUnit=2", "txtPlace=1/2/2026 08:00:00", "cmdOK", "txtPlace=08:01:00.5", "cmdOK"},
            {"cmdCancel"}});
    Do(form, {"key Ctrl+G", "key Ctrl+G", "key Ctrl+G", "key Ctrl+G", "key Ctrl+Left", "key Esc"});
    Answer({{"cmdCancel"},
            {"txtValue=x", "cmdNext", "txtValue=12.5", "cmdNext"},
            {"cboSeries=1", "cboWhat=1", "cmdPrevious"},
            {"cboWhat=3", "cboSeries=0", "cmdNext"},
            {"cboWhat=2", "cmdPrevious"}});
    Do(form, {"key Home", "key N", "key Shift+N", "key N", "key Shift+N", "key Ctrl+F", "key N", "key Ctrl+F", "key N",
              "key Ctrl+F", "key Esc"});
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 31);
    Do(form, {"mouse hover 200 200", "key Ctrl+Shift+Right"});
    Do(form, {"key F", "mouse hover 300 200", "key Ctrl+Right", "key Ctrl+Shift+Right", "mouse leave", "key Ctrl+0"});
    Answer({{"txtPlace=31", "cmdOK"}});
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 500);
    Do(form, "key Ctrl+Left");
    Do(form, {"key Ctrl+G", "mouse hover 340 100", "key Esc", "cmdOK"});
  });
  LookOutside();
}

TEST_F(ChartSession, TypesSwitchesAndScales) {
  Begin("chart_switches");
  Put("60", 60);
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Do(form,
       {"cboChartType=0", "cboChartType=1", "cboChartType=2",  "cboChartType=4", "cboChartType=5",  "chkGrid=1",
        "chkGrid=2",      "chkLine=0",      "chkMarker=1",     "upd1=1",         "upd1=-1",         "upd1=1",
        "cmdUpdateChart", "txtScale2=007",  "cmdUpdateChart",  "txtScale2=0",    "mscChart1>",      "txtScale2=2.5",
        "hsbGraph=1",     "mscChart1>",     "txtScale2=",      "cmdUpdateChart", "txtScale2=abc",   "cmdUpdateChart",
        "txtScale2=-3",   "cmdUpdateChart", "txtScale2=32768", "cmdUpdateChart", "txtScale2=32767", "hsbGraph=2",
        "cmdUpdateChart", "upd3=1",         "cmdPrint"});
    fakes.dialogs.answers = {box_answer::kYes};
  });
  LookOutside();
  component.settings.intChartType = 9;
  component.settings.strGrid = "?";
  fakes.settings.values["frmChart"] = {{"Axis", "Elapsed"}, {"Lanes", "Yes"},  {"Overview", "No"},
                                       {"Left", "300"},     {"Width", "9000"}, {"Top", "99999"}};
  for (const char* title : {"stored settings, some of which name nothing", "the place that the user gave it"}) {
    transcript->Step(title);
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
    Do(form, {"tmrSurvey",
              "mouse press 200 100",
              "mouse release 200 100",
              "mouse press 400 100 shift",
              "mouse release 400 100",
              "key S",
              "key S",
              "mouse hover 100 100",
              "mouse hover 636 100",
              "mouse press 300 100",
              "mouse move 303 200",
              "mouse move 420 220",
              "key Esc",
              "mouse release 420 220",
              "mouse press 300 100",
              "mouse move 420 220",
              "mouse release 420 220",
              "key Esc",
              "key F",
              "mouse press 500 100 shift",
              "mouse move 200 103 shift",
              "mouse move 300 200 shift",
              "mouse release 300 200",
              "key Backspace",
              "mouse press 500 100 middle",
              "mouse move 480 100 middle",
              "mouse release 480 100",
              "key Ctrl+0",
              "mouse press 500 100 middle",
              "mouse move 450 100 middle",
              "mouse hover 400 100",
              "key Space",
              "mouse press 500 100",
              "mouse move 600 100",
              "mouse release 600 100",
              "wheel -2 300 100",
              "wheel 1 300 100 control",
              "wheel -3 500 100 control",
              "wheel -1 500 100 control",
              "key Backspace",
              "wheel 1 20 100",
              "wheel 1 20 300",
              "wheel -1 20 100 control",
              "wheel 1 20 100 shift",
              "key L",
              "wheel 2 20 60",
              "mouse press 100 200 shift",
              "mouse move 300 250 shift",
              "mouse release 300 250",
              "key Backspace",
              "strip press 300 20",
              "strip move 320 20",
              "strip release 320 20",
              "strip hover 100 20",
              "strip press 318 20",
              "strip move 0 20",
              "strip press 10 20 middle",
              "strip twice 100 20",
              "strip twice 100 20 middle"});
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
    transcript->Step(std::string("N ") + points + ", rows " + std::to_string(rows) + ", P " + parameters + ", then " +
                     end);
    Show([&](ChartForm& form) {
      LookAt(form);
      Do(form, {"key End", "sldPointsPerDivision=2", "sldPointsPerDivision=1310", "sldPointsPerDivision=1",
                "hsbGraph=0", "cmdExport"});
    });
  }
  Put("60", 60);
  Show([&](ChartForm& form) {
    Do(form, "hsbGraph=20");
    Put("50", 50, "1");
    transcript->Add("another file of the name");
    Do(form, "key Right");
    fakes.files.Delete(kFile);
    transcript->Add("no file");
    Do(form, {"key Right", "wheel -1 300 100", "cmdExport", "tmrFollow"});
    Put("60", 60, "1", "07");
    transcript->Add("a file of another drive");
    Do(form, "key Right");
  });
  for (const char* drive : {"31", "x", "07"}) {
    Put("9", 9, "1", drive);
    transcript->Step(std::string("drive ") + drive);
    Show([](ChartForm&) {});
    transcript->Listen();
  }
  for (const char* text : {"", "Drive Address=01\r\nNumber of Points=5\r\n",
                           "[INFO]\r\nDrive Address=01\r\nPXXX1=1e400\r\nNumber of Parameters=1\r\nNumber of "
                           "Points=1\r\n[TIME/CONTENT]\r\n#5#####"}) {
    transcript->Step("a file of " + std::to_string(std::string_view(text).size()) + " bytes");
    fakes.files.Put(kFile, text);
    Show([&](ChartForm& form) { LookAt(form); });
  }
  transcript->Step("no names of parameters");
  Put("9", 9);
  fakes.files.Break("read", error_number::kPermissionDenied, "/drivers");
  Show([&](ChartForm& form) { LookAt(form); });
  fakes.files.Mend();
  transcript->Step("no file");
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
    Answer({{"txtValue=500000", "cmdNext"}, {"cboRange=0", "cmdPrint"}, {"cmdYes"}});
    stop(1, "key Ctrl+F");
    stop(9, "key N");
    stop(1, "key Shift+N");
    stop(3, "key Ctrl+P");
    stop(2, "cmdExport");
    fakes.forms.onKeepAlive = [&] { Use(form, "cmdOK"); };
    Answer({{"cmdYes"}});
    Do(form, "cmdExport");
  });
  for (const char* what : {"hsbGraph=2", "cmdOK"}) {
    transcript->Step(std::string("in a long jump ") + what);
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
    Do(form, {"key Ctrl+Right", "key Ctrl+Shift+Left", "key Ctrl+Shift+C"});
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
    Answer({{"cmdNo"}, {"cboRange=1", "cmdYes"}, {"cboRange=2", "cmdYes"}, {"cmdYes"}});
    Do(form, {"cmdExport", "cmdExport", "cmdExport", "menu Export"});
    Answer({{"cmdCancel"}, {"txtTitle=Load test", "txtRemark=no\tfaults", "cboRange=0", "cmdPrint"}, {"cmdPrint"}});
    Do(form, {"key Ctrl+P", "key Ctrl+P"});
    const std::string line(90, 'x');
    std::string lines;
    for (int i = 0; i < 20; ++i) lines += "line " + std::to_string(i) + (i % 9 == 0 ? line : "") + "\n";
    Answer({{"txtTitle=" + line + line, "txtRemark=" + lines, "cboRange=1", "cmdPrint"}, {"cmdPrint"}});
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, std::nullopt);
    Do(form, "key Ctrl+P");
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
    Do(form, {"key F",
              "tmrSurvey",
              "mouse hover 400 100",
              "mouse hover 635 100",
              "mouse press 300 100",
              "mouse release 300 100",
              "key Ctrl+Right",
              "key Ctrl+Shift+Left",
              "key S",
              "mouse leave",
              "key Esc",
              "key L",
              "key E",
              "key +",
              "key End",
              "key Left",
              "wheel -2 300 100 control",
              "sldPointsPerDivision=100",
              "key Backspace",
              "key Backspace"});
    brief = true;
    Answer({{"cboRange=0", "cmdPrint"}});
    Do(form, "key Ctrl+P");
  });
}

}  // namespace
}  // namespace chartproject
