// The commands in this process: what they print, refuse and leave, and what they show in windows and on paper.
#include "acquire/dialog/acquire_form.h"
#include "chart/window/chart_form.h"
#include "host/host_case.h"
#include "host/program.h"
#include "host/window/start_form.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty, ::testing::Not, ::testing::StartsWith;

using HostTest = HostCase;

std::vector<std::string> operator+(std::vector<std::string> left, const std::vector<std::string>& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

TEST_F(HostTest, DrivesAreATableWithAHeading) {
  EXPECT_EQ(Run({"drives"}).out,
            "Address  Model   Firmware  Voltage  Current  Tag   Reference  Serial number\n"
            "01       KRA-09  2.40                        Pump\n"
            "02       TSR-05  1.0\n");
  const Done json = Run({"drives", "--json"});
  EXPECT_THAT(json.out, HasSubstr(R"("address": "02",)"));
  EXPECT_THAT(json.out, HasSubstr(R"("tag": "Pump",)"));
}

TEST_F(HostTest, AnEmptyProjectSaysWhatToDo) {
  PutFile("profile/Kestrel v5.60.ini", "");
  struct Case {
    std::vector<std::string> arguments;
    int code;
    const char* hint;
  };
  const Case cases[] = {
      {{"drives"}, 0, "There are no drives yet; \"chartproject init FOLDER\" makes a project.\n"},
      {{"drives", "--json"}, 0, ""},
      {{"drives", "test"}, 2, "the project has no drives; \"chartproject drives add\" adds one"},
      {{"drives", "test", "3"}, 2, "there is no drive at address 03"},
      {{"read", "1", "3"}, 2, "there is no drive at address 01; \"chartproject drives\" lists them"},
      {{"acquire", "--file", "run.cht", "--parameters", "3"}, 2, "chartproject: "},
  };
  for (const Case& one : cases) {
    const Done done = Run(one.arguments);
    EXPECT_EQ(done.code, one.code) << done.err;
    EXPECT_THAT(done.err, HasSubstr(one.hint));
  }
}

TEST_F(HostTest, ReadsAndTestsDrives) {
  const Done read = Run({"read", "1", "3", "P005", "77"});
  EXPECT_EQ(read.out, "P003 1.50\nP005 50.25\nP077 no answer\n");
  EXPECT_EQ(read.code, 1);
  EXPECT_EQ(Run({"read", "1", "3"}).code, 0);
  const Done watched = Run({"read", "1", "3", "5", "--watch", "2", "--times", "3"});
  EXPECT_EQ(watched.code, 0);
  EXPECT_EQ(std::ranges::count(watched.out, '\n'), 3 * 2) << watched.out;
  EXPECT_THAT(watched.out, StartsWith("P003 1.50, 0 s old, 0 failures\nP005 50.25, "));
  EXPECT_EQ(Run({"drives", "test", "1"}).out, "01  KRA-09  answers in 0 ms\n");
  PutFile("drive02.txt", "Type=KRA-08\r\nFirmware Version=1.0\r\n");
  PutFile("KRA08V10E.wcd", "");
  PutFile("power.txt", "at 0 02 P005 50\nat 0 02 P208 30\n");
  EXPECT_EQ(Run({"--link", "scenario:power.txt", "read", "2", "2"}).out, "P002 1500.00\n");
}

TEST_F(HostTest, WatchedValuesAgeAndCountTheirFailures) {
  PutFile("ill.txt", "at 0 01 P003 1\nat 0 02 P003 2\nat 1500 01 fails 3\nat 3500 01 answers\n");
  const Done watched = Run({"--link", "scenario:ill.txt", "read", "1", "3", "--watch", "2", "--times", "3"});
  EXPECT_EQ(watched.out,
            "P003 1, 0 s old, 0 failures\nP003 1, 2 s old, 1 failures: bad checksum\nP003 1, 0 s old, 1 failures\n");
  EXPECT_EQ(watched.code, 0);
  EXPECT_EQ(Run({"--link", "scenario:ill.txt", "read", "1", "3", "--watch", "2", "--times", "2"}).code, 1);
  EXPECT_EQ(
      Run({"read", "1", "3", "77", "--json"}).out,
      "{\n  \"address\": 1,\n  \"readings\": [\n    {\n      \"parameter\": \"P003\",\n      \"text\": \"1.50\",\n"
      "      \"reason\": null,\n      \"detail\": null\n    },\n    {\n      \"parameter\": \"P077\",\n"
      "      \"text\": null,\n      \"reason\": \"no-answer\",\n      \"detail\": \"no answer\"\n    }\n  ]\n}\n");
}

TEST_F(HostTest, APlanIsTimedAgainstItsInterval) {
  PutFile("slow.txt", "at 0 01 P003 1\nat 0 01 P005 2\nat 0 01 slow 150\n");
  const std::tuple<std::vector<std::string>, int, const char*> cases[] = {
      {{"--every", "200ms"}, 1, "A point takes 300 ms, more than your 200 ms: points will come late.\n"},
      {{"--every", "300ms"}, 0, "A point takes 300 of your 300 ms.\n"},
      {{"--every", "2s"}, 0, "A point takes 300 of your 2000 ms.\n"},
      {{"--every", "01:02:03"}, 0, "A point takes 300 of your 3723000 ms.\n"},
      {{}, 0, "A point takes 300 of your 1000 ms.\n"},
      {{"--address", "3"}, 2, ""}};
  for (const auto& [more, code, text] : cases) {
    const Done done =
        Run(std::vector<std::string>{"--link", "scenario:slow.txt", "acquire", "--test", "--parameters", "3,5"} + more);
    EXPECT_EQ(done.out, text) << done.err;
    EXPECT_EQ(done.code, code) << text;
  }
}

TEST_F(HostTest, FaultyDriveAndDriverFilesAreNamed) {
  PutFile("drive01.txt", "Type=KRA-02\r\n");
  PutFile("KRA02E.wcd", "\r\n#1#x#\r\n#P1000#############");
  EXPECT_THAT(Run({"read", "1", "P003"}).err, HasSubstr("KRA02E.wcd, line 3: "));
  const Done checked = Run({"drives", "check", "KRA02E.wcd"});
  EXPECT_EQ(checked.code, 1);
  EXPECT_THAT(checked.out, HasSubstr("line 3: "));
  EXPECT_THAT(checked.out, HasSubstr("the file describes no parameter"));
  PutFile("KRA02E.wcd", "#P003#Current############");
  EXPECT_EQ(Run({"read", "1", "P003"}).out, "P003 no value shown\n");
  EXPECT_EQ(Run({"drives", "check", "KRA02E.wcd"}).out, "1 parameters, no complaint\n");
  EXPECT_THAT(Run({"acquire", "--parameters", "3", "--points", "1", "--file", "run.cht"}).err,
              HasSubstr("The model KRA-02 shows no numbers, except in P006."));
  PutFile("drive02.txt", "Tag=none\r\n");
  std::filesystem::remove("drive01.txt");
  const Done drives = Run({"drives"});
  EXPECT_EQ(drives.code, 1);
  EXPECT_THAT(drives.err, HasSubstr("drive02.txt: the file names no model"));
  EXPECT_THAT(drives.err, HasSubstr("drive01.txt: there is no such file"));
  PutFile("drive01.txt", "Type=KRA-05\r\n");
  EXPECT_THAT(Record(1).err, HasSubstr("drive 01: there is no driver file"));
}

TEST_F(HostTest, RefusesWhatNobodyCanRecord) {
  const std::vector<std::string> record{"acquire", "--parameters", "3", "--file", "run.cht"};
  const std::vector<std::string> file{"acquire", "--file", "run.cht"};
  const char* const range = "[Kestrel v5.60] Value out of range !";
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {record + std::vector<std::string>{"--points", "0"}, range},
      {record + std::vector<std::string>{"--points", "2000000001"}, range},
      {record + std::vector<std::string>{"--every", "66s"}, range},
      {record + std::vector<std::string>{"--every", "150ms"}, range},
      {record + std::vector<std::string>{"--every", "24:00:00"}, range},
      {record + std::vector<std::string>{"--points", "12.6"}, "--points: \"12.6\" is not accepted"},
      {record + std::vector<std::string>{"--every", "5"}, "--every: \"5\" is not a valid time"},
      {record + std::vector<std::string>{"--address", "3"}, "there is no drive 03"},
      {record + std::vector<std::string>{"--address", "99"}, "not a whole number from 0 to 30"},
      {record + std::vector<std::string>{"--address", "2", "--trigger", "RUN"}, "[Kestrel v5.60] Event not available"},
      {record + std::vector<std::string>{"--trigger", "STOP"}, "there is no event \"STOP\""},
      {record + std::vector<std::string>{"--trigger", "PXXX=Content", "--content", "1"}, "needs --compare"},
      {record + std::vector<std::string>{"--trigger", "PXXX=Content", "--compare", "5"}, "Enter the content"},
      {record + std::vector<std::string>{"--compare", "3"}, "--compare and --content go with"},
      {record + std::vector<std::string>{"--rows", "x"}, "--rows: only -, standard output"},
      {record + std::vector<std::string>{"--rows", "-", "--json"}, "both want standard output"},
      {file + std::vector<std::string>{"--parameters", "3,77"}, "drive 01 has no parameter P077"},
      {file + std::vector<std::string>{"--parameters", "3,3,3,3,3"}, "one to four parameters"},
      {file + std::vector<std::string>{"--parameters", "P999"}, "999 marks a column that is not in use"},
      {file + std::vector<std::string>{"--parameters", "1000"}, "not a whole number from 0 to 999"},
      {file + std::vector<std::string>{"--parameters", "P-1"}, "not a whole number from 0 to 999"},
      {file, "give both --file and --parameters"},
      {{"acquire", "--points", "9"}, "in the dialog"},
      {{"acquire", "--json"}, "--json goes with --file and --parameters"},
      {{"acquire", "--rows", "-"}, "--rows goes with --file and --parameters"},
      {{"acquire", "--test"}, "--test needs --parameters"},
      {{"acquire", "--parameters", "3", "--file", "none/run.cht"}, "none/run.cht does not exist."},
      {{"acquire", "--parameters", "3", "--file", "profile"}, "is a folder."},
      {{"settings", "MyConf.none"}, "no setting \"MyConf.none\""},
      {{"settings", "MyConf.intTrials", "1.5"}, "MyConf.intTrials: \"1.5\" is not a whole number"},
      {{"settings", "MyConf.strLanguage", "english"}, "is not one of "},
      {{"settings", "MyConf.strGrid", "yes"}, "is not one of Yes, No"},
      {{"settings", "MyConf.intTrials", "99999"}, "Overflow: setting MyConf.intTrials"},
      {{"--link", "com1", "drives"}, "\"com1\" is not a drive link; use sim, scenario:FILE, modbus:PORT"},
      {{"--link", "modbus:x?speed=9", "drives"}, "--link: "},
      {{"read", "9", "3"}, "no drive at address 09"},
      {{"inof"}, "\"inof\" is neither a command nor a file; "},
      {{"info", "one.cht", "two.cht"}, "The following argument was not expected: two.cht"},
  };
  for (const auto& [arguments, text] : cases) {
    const Done done = Run(arguments);
    EXPECT_EQ(done.code, 2) << ::testing::PrintToString(arguments);
    EXPECT_THAT(done.err, HasSubstr(text)) << ::testing::PrintToString(arguments);
    EXPECT_FALSE(std::filesystem::exists("run.cht"));
  }
}

TEST_F(HostTest, ErrorsNameTheirFileAndEndWith1) {
  PutFile("bad.txt", "at 0 01 P003 1\nat soon 01 P005 2\n");
  PutFile("rubbish.cht", std::string(100, '\0') + "\n");
  std::filesystem::create_directory("run.cht.tcf0");
  const std::vector<std::string> record{"acquire", "--parameters", "3", "--file", "run.cht"};
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {std::vector<std::string>{"--link", "scenario:none.txt"} + record, "none.txt"},
      {std::vector<std::string>{"--link", "scenario:bad.txt"} + record, "at soon 01 P005 2"},
      {record + std::vector<std::string>{"--points", "3000"}, "run.cht.tcf0: Is a directory"},
      {{"info", "none.cht"}, "none.cht"},
      {{"info", "rubbish.cht"}, "Not a chart file"},
      {{"info", "."}, "directory"},
      {{"export", "rubbish.cht"}, "Not a chart file"},
      {{"print", "rubbish.cht"}, "rubbish.cht"},
      {{"view", "none.cht"}, "none.cht"},
  };
  for (const auto& [arguments, text] : cases) {
    const Done done = Run(arguments);
    EXPECT_EQ(done.code, 1) << ::testing::PrintToString(arguments);
    EXPECT_THAT(done.err, HasSubstr(text)) << ::testing::PrintToString(arguments);
  }
  EXPECT_FALSE(std::filesystem::exists("run.cht"));
}

TEST_F(HostTest, OutputThatCannotBeWrittenIsAFailureWhereItIsTheResult) {
  const auto intoNothing = [](std::vector<const char*> arguments) {
    std::ostream full(nullptr);
    std::ostringstream err;
    arguments.insert(arguments.begin(),
                     {"chartproject", "--profile", "profile", "--link", "scenario:plant.txt", "--clock", "virtual"});
    const int code = RunProgram(static_cast<int>(arguments.size()), arguments.data(), full, err);
    return std::pair(code, err.str());
  };
  for (const char* command : {"settings", "drives"}) {
    const auto [code, err] = intoNothing({command});
    EXPECT_EQ(code, 1) << command;
    EXPECT_THAT(err, HasSubstr("the output could not be written")) << command;
  }
  const auto [code, err] = intoNothing({"acquire", "--parameters", "3", "--points", "3", "--file", "run.cht"});
  EXPECT_EQ(code, 0) << err;
  EXPECT_THAT(FileBytes("run.cht"), HasSubstr("#1.50#"));
}

TEST_F(HostTest, SettingsAreListedSetAndPutRight) {
  EXPECT_EQ(Run({"settings", "MyConf.strLanguage"}).out, "English\n");
  EXPECT_EQ(Run({"settings", "MyConf.strLanguage", "Portuguese"}).code, 0);
  EXPECT_THAT(Run({"settings"}).out, HasSubstr("\nMyConf.strLanguage=Portuguese\n"));
  EXPECT_EQ(Run({"settings", "MyConf.strLanguage", "--json"}).out, "{\n  \"MyConf.strLanguage\": \"Portuguese\"\n}\n");
  EXPECT_THAT(Record(0).err, HasSubstr("Valor fora da faixa"));
  EXPECT_EQ(Run({"settings", "MyLink.strLink", "sim"}).code, 0);
  EXPECT_EQ(Run({"settings", "MyLink.strLink"}).out, "sim\n");
  EXPECT_EQ(Run({"settings", "MyLink.strLink", "com1"}).code, 2);
  PutFile("profile/Kestrel v5.60.ini", "[MyConf]\nintTrials=many\n");
  EXPECT_THAT(Run({"drives"}).err, HasSubstr("intTrials"));
  EXPECT_EQ(Run({"settings", "MyConf.intTrials", "7"}).code, 0);
  EXPECT_EQ(Run({"settings", "MyConf.intTrials"}).out, "7\n");
  EXPECT_EQ(Run({"drives"}).code, 0);
}

TEST_F(HostTest, ThePageShowsTheOptionsOfItsChart) {
  ASSERT_EQ(Record(30).code, 0);
  const auto page = [this](const std::vector<std::string>& options) {
    screen.printer.texts.clear();
    const Done done = Run(std::vector<std::string>{"print", "run.cht", "--output", "page.pdf"} + options);
    EXPECT_EQ(done.code, 0) << done.err;
    std::string all;
    for (const auto& text : screen.printer.texts) all += text.text + "|";
    return all;
  };
  EXPECT_THAT(page({}), HasSubstr("Grid: |No|"));
  EXPECT_THAT(page({}), HasSubstr("Marker: |No|Line: |Yes|Chart Type: |2D Line|"));
  EXPECT_THAT(page({"--grid", "on"}), HasSubstr("Grid: |Yes|"));
  EXPECT_THAT(page({"--markers", "on"}), HasSubstr("Marker: |Yes|"));
  EXPECT_THAT(page({"--lines", "off"}), HasSubstr("Line: |No|"));
  EXPECT_THAT(page({"--type", "6"}), HasSubstr("Chart Type: |3D Step|"));
  EXPECT_THAT(page({"--scale", "1,10"}), HasSubstr("Scale 1...32767: 10|"));
  EXPECT_EQ(screen.printedTo, folder / "page.pdf");
  EXPECT_THAT(page({"--paper", "letter"}), HasSubstr("Kestrel"));
  EXPECT_EQ(screen.paper.width, 21.59);
  EXPECT_EQ(screen.printer.documentsPrinted, 8);
  EXPECT_EQ(screen.printer.pictures.size(), 8U);
  for (const std::vector<std::string>& wrong :
       {std::vector<std::string>{"--paper", "B5"}, {"--grid", "yes"}, {"--type", "8"}, {"--first", "31"}}) {
    EXPECT_EQ(Run(std::vector<std::string>{"print", "run.cht"} + wrong).code, 2) << wrong[1];
  }
  screen.printer.declined = true;
  EXPECT_EQ(Run({"print", "run.cht"}).code, 1);
}

TEST_F(HostTest, ARenderedChartFollowsTheUsersLocale) {
  PutFile("run.cht", "[INFO]\r\nNumber of Parameters=1\r\n[TIME/CONTENT]\r\n1#0.1#####\r\n2#0.5#####\r\n");
  const auto texts = [this] {
    EXPECT_EQ(Run({"render", "run.cht", "--output", "a.png"}).code, 0);
    return screen.pictures.texts;
  };
  EXPECT_THAT(texts(), ::testing::Contains("0.20"));
  setenv("LC_ALL", "pt_BR.UTF-8", 1);
  EXPECT_THAT(texts(), ::testing::Contains("0,20"));
}

TEST_F(HostTest, RefusesWhatItCannotDraw) {
  PutFile("one.cht", "[INFO]\r\nNumber of Parameters=1\r\n[TIME/CONTENT]\r\n1#0.1#####\r\n2#0.5#####\r\n");
  PutFile("bad.cht", FileBytes("one.cht") + "rubbish\r\n");
  const std::tuple<std::vector<std::string>, int, const char*> cases[] = {
      {{"one.cht", "--type", "8"}, 2, "--type"},
      {{"one.cht", "--size", "10x10"}, 2, "--size"},
      {{"one.cht", "--first", "0"}, 2, "--first"},
      {{"one.cht", "--first", "3"}, 2, "2 points"},
      {{"one.cht", "--points-per-division", "1311"}, 2, "--points-per-division"},
      {{"one.cht", "--scale", "1,x"}, 2, "--scale"},
      {{"one.cht", "--grid", "yes"}, 2, "--grid"},
      {{"one.cht", "--axis", "days"}, 2, "--axis"},
      {{"one.cht", "--hide", "5"}, 2, "--hide"},
      {{"one.cht", "--fit", "--points-per-division", "2"}, 2, "--fit: as many points"},
      {{"one.cht", "--axis", "time"}, 2, "--axis"},
      {{"none.cht"}, 1, "none.cht"},
      {{"bad.cht"}, 1, "rubbish"}};
  for (const auto& [arguments, code, text] : cases) {
    const Done done = Run(std::vector<std::string>{"render", "--output", "a.png"} + arguments);
    EXPECT_EQ(done.code, code) << ::testing::PrintToString(arguments);
    EXPECT_THAT(done.err, HasSubstr(text));
    EXPECT_FALSE(std::filesystem::exists("a.png"));
  }
}

TEST_F(HostTest, AChartFileOpensInItsWindow) {
  ASSERT_EQ(Record(30).code, 0);
  std::string file;
  screen.onForm = [&file](Form& form) { file = dynamic_cast<ChartForm&>(form).rtfInfo.Text(); };
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"view", "run.cht"}, {"run.cht"}}) {
    file.clear();
    EXPECT_EQ(Run(arguments).code, 0);
    EXPECT_THAT(file, HasSubstr("01/31/2026"));
  }
  EXPECT_EQ(screen.windows.size(), 2U);
  screen.missing = true;
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"view", "run.cht"}, {"run.cht"}, {"acquire"}, {}}) {
    const Done done = Run(arguments);
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.err, "chartproject: error 429: There is no display to show windows on.\n");
  }
}

TEST_F(HostTest, TheStartWindowKnowsTheDrivesAndTheChartsOfBefore) {
  ASSERT_EQ(Record(30).code, 0);
  ASSERT_EQ(Run({"view", "run.cht"}).code, 0);
  std::string drives;
  std::string recent;
  screen.onForm = [&](Form& form) {
    drives = dynamic_cast<StartForm&>(form).rtfDrives.Text();
    recent = dynamic_cast<StartForm&>(form).cmdRecent[0].Caption();
  };
  EXPECT_EQ(Run({}).code, 0);
  EXPECT_THAT(drives, HasSubstr("KRA-09"));
  EXPECT_THAT(recent, HasSubstr("run.cht"));
}

TEST_F(HostTest, WithoutFileAndParametersTheDialogOpens) {
  ASSERT_EQ(Record(3).code, 0);
  screen.onForm = [this](Form& form) {
    auto* const dialog = dynamic_cast<AcquireForm*>(&form);
    if (dialog == nullptr) return;
    dialog->file.NameFile(folder / "run.cht");
    dialog->cmdViewChart.Press();
  };
  EXPECT_EQ(Run({"acquire"}).code, 0);
  EXPECT_THAT(screen.windows, ElementsAre(HasSubstr("Acquire Parameter"), "Chart File - run.cht"));
  EXPECT_THAT(FileBytes("profile/Kestrel v5.60.ini"), HasSubstr("strRecent1=" + (folder / "run.cht")));
}

TEST_F(HostTest, AMadeProjectRecordsInEachLanguage) {
  std::filesystem::remove("profile/Kestrel v5.60.ini");
  EXPECT_THAT(Run({"init", "made"}).out, StartsWith("Project in " + (folder / "made") + ": "));
  EXPECT_THAT(Run({"init", "made"}).out, HasSubstr(" were there already"));
  const std::string drives = Run({"--link", "sim", "drives"}).out;
  for (const char* model : {"KRA-09  2.40", "KRA-08", "LMX-01", "KRD-04", "TSR-05", "PVE-05"})
    EXPECT_THAT(drives, HasSubstr(model));
  for (const char* language : {"English", "Portuguese", "Spanish"}) {
    EXPECT_EQ(Run({"settings", "MyConf.strLanguage", language}).code, 0);
    const Done done = Record(20, {"--link", "sim"});
    EXPECT_EQ(done.out, "20 points in " + (folder / "run.cht") + "\n") << done.err;
  }
  EXPECT_THAT(Run({"info", "run.cht"}).out, HasSubstr("\nRows: 20\n"));
}

TEST_F(HostTest, ShellsAndManualGetWhatTheyAskFor) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"--version"}, "ChartProject "},
      {{"describe", "addresses"}, "1\tKRA-09 Pump\n2\tTSR-05 \n"},
      {{"describe", "parameters"}, "3\tMotor current\n5\tMotor frequency\n12\tInputs\n"},
      {{"describe", "man"}, "\n.SS read \\fIADDRESS\\fR \\fIPARAMETER\\fR...\n"},
      {{"describe", "bash"}, "acquire:--address) _chartproject_listed addresses; return ;;\n"},
  };
  for (const auto& [arguments, text] : cases) {
    const Done done = Run(arguments);
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.out, HasSubstr(text));
  }
}

TEST_F(HostTest, InfoShowsHeaderRowsAndMalformedLines) {
  ASSERT_EQ(Record(3).code, 0);
  const Done json = Run({"info", "run.cht", "--json"});
  for (const char* part : {R"("rows": 3,)", R"("malformedLines": 0)", R"("PXXX2": "005")"})
    EXPECT_THAT(json.out, HasSubstr(part));
  PutFile("cut.cht", "[INFO]\r\nDrive Address=01\r\n[TIME/CONTENT]\r\n1#2#3####\r\n\r\n  ' 1#2#3####\r\n08:0");
  EXPECT_THAT(Run({"info", "cut.cht"}).out, HasSubstr("Rows: 1\nMalformed lines: 1\n"));
  const Done range = Run({"info", "run.cht", "--first", "2"});
  EXPECT_THAT(range.out, HasSubstr("Points 2 to 3\n"));
  EXPECT_THAT(range.out, HasSubstr("50.25"));
}

TEST_F(HostTest, ATriggerStartsTheRecordingAtTheEvent) {
  PutFile("plant.txt", "at 0 01 P003 1\nat 0 01 P005 1,5\nat 7300 01 P005 50\n");
  const Done done = Record(3, {"--trigger", "PXXX>=Content", "--compare", "5", "--content", "50"});
  EXPECT_EQ(done.code, 0) << done.err;
  EXPECT_THAT(done.err, HasSubstr("waiting for PXXX>=Content"));
  EXPECT_THAT(FileBytes("run.cht"),
              ::testing::EndsWith("08:00:09#1#50####\r\n08:00:10#1#50####\r\n08:00:11#1#50####\r\n"));
}

}  // namespace
}  // namespace chartproject
