// The ports of Windows against the real system.
#include <gmock/gmock.h>

#include <cstring>

#include "backends/win32/com_module.h"
#include "backends/win32/drawing/win32_clipboard.h"
#include "backends/win32/drawing/win32_picture_renderer.h"
#include "backends/win32/files/disk_space.h"
#include "backends/win32/files/win32_file_system.h"
#include "backends/win32/handles.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/win32_code_page.h"
#include "backends/win32/win32_locale.h"
#include "backends/win32/win32_settings_store.h"
#include "backends/win32/win32_sound.h"
#include "platform/run_time_error.h"
#include "support/error_of.h"
#include "windows/form_driver.h"

namespace chartproject::win32 {
namespace {

std::string InTestFolder(const std::string& name) {
  return testing::TestFolder() + "\\" + name;
}

TEST(CodePage, EveryByteComesBack) {
  std::string bytes;
  for (int first = 0; first < 256; ++first) {
    for (const int second : {first, 0x41, 0x81, 0xE9}) {
      bytes += static_cast<char>(first);
      bytes += static_cast<char>(second);
    }
  }
  for (const unsigned codePage : {1252U, 1251U, 932U, 65001U}) {
    const Win32CodePage page(codePage);
    EXPECT_EQ(page.Encode(page.Decode(bytes)), bytes) << codePage;
  }
}

TEST(CodePage, NamesTheCharactersOfWesternText) {
  const Win32CodePage page(1252);
  EXPECT_EQ(page.Decode("Endere\xE7o \x80"), "Endere\xC3\xA7o \xE2\x82\xAC");
  EXPECT_EQ(page.Encode("\xCE\xA9 \xE2\x89\xA4"), "? ?");  // no look-alikes
}

TEST(Win32SettingsStore, StoreAndFindTexts) {
  Win32SettingsStore settings("ChartProject test");
  EXPECT_EQ(settings.Read("Section", "Key"), std::nullopt);
  const StoredSetting stored[] = {{"Key", "S\xC3\xA3o Paulo"}, {"Empty", ""}};
  settings.Write("Section", stored);
  EXPECT_EQ(settings.Read("Section", "Key"), "S\xC3\xA3o Paulo");
  EXPECT_EQ(settings.Read("Section", "Empty"), "");

  OwnedKey key;
  RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\VB and VB Program Settings\\ChartProject test\\Section", 0,
                KEY_ALL_ACCESS, key.Receive());
  struct Other {
    DWORD type;
    std::wstring_view bytes;
    const char* text;
    const char* written;
    DWORD typeAfter;
  };
  using namespace std::literals;
  const Other others[] = {
      {REG_DWORD, L"\xFFFE\xFFFF"sv, "-2", "7", REG_DWORD},
      {REG_DWORD, L"\x0007\x0000"sv, "7", "seven", REG_SZ},
      {REG_EXPAND_SZ, L"%SystemDrive%\\a\0"sv, "C:\\a", "C:\\a", REG_EXPAND_SZ},
      {REG_EXPAND_SZ, L"plain\0"sv, "plain", "100%", REG_SZ},
      {REG_MULTI_SZ, L"one\0two\0\0"sv, "one", "one", REG_MULTI_SZ},
  };
  DWORD type = 0;
  for (const Other& other : others) {
    RegSetValueExW(key.Get(), L"Other", 0, other.type, reinterpret_cast<const BYTE*>(other.bytes.data()),
                   static_cast<DWORD>(other.bytes.size() * sizeof(wchar_t)));
    EXPECT_EQ(settings.Read("Section", "Other"), other.text);
    settings.Write("Section", std::array{StoredSetting{"Other", other.written}});
    RegQueryValueExW(key.Get(), L"Other", nullptr, &type, nullptr, nullptr);
    EXPECT_EQ(type, other.typeAfter) << other.text;
    EXPECT_EQ(settings.Read("Section", "Other"), other.written);
  }
  const DWORD number = 7;
  RegSetValueExW(key.Get(), L"Empty", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
  const std::string tooLong(20000, 'k');
  const StoredSetting refused[] = {{"Key", "new"}, {"Empty", "new"}, {"New", "new"}, {tooLong, "new"}};
  EXPECT_EQ(ErrorOf([&] { settings.Write("Section", refused); }), 75);
  RegQueryValueExW(key.Get(), L"Empty", nullptr, &type, nullptr, nullptr);
  EXPECT_EQ(type, DWORD{REG_DWORD});
  EXPECT_EQ(settings.Read("Section", "Key"), "S\xC3\xA3o Paulo");
  EXPECT_EQ(settings.Read("Section", "New"), std::nullopt);
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VB and VB Program Settings\\ChartProject test");
  RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\VB and VB Program Settings\\ChartProject test");
}

TEST(Files, DevicesAndPipesAreNotOpenedAsFiles) {
  Win32FileSystem files;
  const OwnedFile pipe(
      CreateNamedPipeW(L"\\\\.\\pipe\\ChartProjectTest", PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 64, 64, 0, nullptr));
  for (const char* name : {"NUL", "\\\\.\\pipe\\ChartProjectTest"}) {
    EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(name); }), 75) << name;
  }
}

TEST(Files, SideFilesTakeFreeNamesAndReplaceTheirTarget) {
  Win32FileSystem files;
  const std::string target = InTestFolder("a\xC3\xA7\xC3\xA3o.txt");
  files.Append(target, "one\r\n");
  files.Append(target, "two\r\n");
  EXPECT_EQ(testing::FileContents(target), "one\r\ntwo\r\n");
  files.Append(target + ".new", "the user's");
  auto side = files.MakeSideFile({.target = target, .ending = ".new"});
  EXPECT_EQ(side->Name(), target + ".new1");
  side->AppendAndMeasure("1");
  side->AppendAndMeasure("2");
  side->ReplaceTarget();
  side.reset();
  EXPECT_EQ(testing::FileContents(target), "12");
  EXPECT_EQ(testing::FileContents(target + ".new"), "the user's");
  side = files.MakeSideFile({.target = target, .ending = ".tcf0", .names = 1});
  const std::string moved = InTestFolder("moved away");
  ASSERT_TRUE(MoveFileW(win32::ToWide(side->Name()).c_str(), win32::ToWide(moved).c_str()));
  files.Append(side->Name(), "a stranger's");
  EXPECT_EQ(ErrorOf([&] { side->AppendAndMeasure("row"); }), 75);
  const std::string name = side->Name();
  side.reset();
  EXPECT_EQ(testing::FileContents(name), "a stranger's");
  for (const std::string& each : {target, target + ".new", name, moved}) files.Delete(each);
  const HANDLE pipe = CreateNamedPipeW(LR"(\\.\pipe\planted)", PIPE_ACCESS_DUPLEX, 0, 1, 0, 0, 0, nullptr);
  for (const char* device : {"NUL", "CON", "COM1", R"(\\.\pipe\planted)"}) {
    EXPECT_NE(ErrorOf([&] { (void)files.OpenForReading(device); }), 0) << device;
  }
  CloseHandle(pipe);
}

TEST(Files, ANameIsLockedForOneUntilItLetsGo) {
  Win32FileSystem files;
  for (int round = 0; round < 2; ++round) {
    const LockAttempt mine = files.Lock(InTestFolder("a.cht"));
    EXPECT_NE(mine.lock, nullptr);
    EXPECT_EQ(files.Lock(InTestFolder("a.cht")).heldBy, InTestFolder("a.cht.lock"));
  }
  EXPECT_FALSE(files.FileExists(InTestFolder("a.cht.lock")));
}

TEST(Files, IdentityTellsAGrownFileFromAReplacedOne) {
  Win32FileSystem files;
  const std::string name = InTestFolder("identity.txt");
  files.Append(name, "1");
  const FileIdentity before = files.OpenForReading(name)->Identity();
  files.Append(name, "2");
  const FileIdentity grown = files.OpenForReading(name)->Identity();
  EXPECT_EQ(grown.index, before.index);
  EXPECT_EQ(grown.size, 2U);
  files.Delete(name);
}

TEST(Files, FailuresAreNumbered) {
  Win32FileSystem files;
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(InTestFolder("missing.txt")); }), 53);
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(InTestFolder("missing\\file.txt")); }), 76);
  EXPECT_EQ(ErrorOf([&] { (void)files.OpenForReading(testing::TestFolder()); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.CheckReplaceable(testing::TestFolder()); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.Delete(InTestFolder("missing.txt")); }), 53);
  EXPECT_EQ(ErrorOf([&] { files.ChangeFolder(InTestFolder("missing")); }), 76);
  const auto side = files.MakeSideFile({.target = InTestFolder("held.txt"), .ending = ".new"});
  const auto held = side->OpenForWriting();
  EXPECT_EQ(ErrorOf([&] { files.Append(side->Name(), "x"); }), 70);
}

TEST(DiskSpace, IsMeasuredOnTheDiskOfTheFirstThreeCharacters) {
  const DiskSpace byName = MeasureDiskSpace("C:\\no such folder\\file.cht");
  const DiskSpace byRoot = MeasureDiskSpace("C:\\");
  EXPECT_GT(byName.total, 0U);
  EXPECT_EQ(byName.total, byRoot.total);
  EXPECT_GE(byName.totalFree, byName.availableToUser);
  EXPECT_NE(ErrorOf([] { (void)MeasureDiskSpace("Q:\\file.cht"); }), 0);
}

TEST(DiskSpace, TheSectorsOfALargeDiskOverflowInsteadOfWrapping) {
  // A disk of this machine holds more than 2 GiB; the old measurement caps or overflows, it never invents a number.
  try {
    const DiskSpace space = MeasureDiskSpaceBySectors("C:\\");
    EXPECT_LE(space.total, 0x7FFFFFFFU);
    EXPECT_LE(space.totalFree, space.total);
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 6);
  }
}

TEST(Clipboard, APictureGoesThroughUnchanged) {
  Win32Clipboard clipboard;
  clipboard.Clear();
  EXPECT_EQ(clipboard.Picture(), std::nullopt);
  const Bitmap picture{3, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF000000, 0xFFFFFFFF, 0xFF123456}, 192};
  clipboard.SetPicture(picture);
  const auto taken = clipboard.Picture();
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(std::tuple(taken->width, taken->height, taken->pixels), std::tuple(3, 2, picture.pixels));
  EXPECT_NEAR(taken->dotsPerInch, 192, 0.1);
}

TEST(Clipboard, APictureThatItsHeaderMakesLargerThanItIsIsNone) {
  const struct {
    LONG width;
    LONG height;
    WORD bits;
    DWORD colors;
    bool whole;
  } cases[] = {{2, -2, 32, 0, true},
               {2, 3, 32, 0, false},
               {2, LONG{-0x7FFFFFFF} - 1, 32, 0, false},
               {0x40000000, 2, 32, 0, false},
               {2, 1, 8, 0, false},
               {2, 1, 24, 0x40000000, false},
               {2, LONG{-0x7FFFFFFF} - 1, 0, 0, false}};
  for (const auto& each : cases) {
    BITMAPINFOHEADER header{sizeof header, each.width, each.height, 1, each.bits, BI_RGB, 0, 0, 0, each.colors, 0};
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof header + 2 * 2 * 4);
    std::memcpy(GlobalLock(memory), &header, sizeof header);
    GlobalUnlock(memory);
    ASSERT_NE(OpenClipboard(nullptr), 0);
    EmptyClipboard();
    SetClipboardData(CF_DIB, memory);
    CloseClipboard();
    EXPECT_EQ(Win32Clipboard().Picture().has_value(), each.whole) << each.width << " x " << each.height;
  }
}

TEST(Renderer, PaintsAtTheScaleAskedFor) {
  const GdiplusSession session;
  GdiplusFonts fonts;
  Win32PictureRenderer renderer(fonts);
  const Bitmap picture = renderer.Render({10, 4}, 2.0, [](Canvas& canvas) {
    EXPECT_EQ(canvas.Extent().width, 10);
    canvas.FillRect({0, 0, 5, 4}, Color{255, 0, 0});
    EXPECT_GT(canvas.MeasureText("Wide text", Font{"No such family", 9.0}).width, 20);
  });
  ASSERT_EQ(std::pair(picture.width, picture.height), std::pair(20, 8));
  EXPECT_EQ(picture.dotsPerInch, 192);
  EXPECT_EQ(picture.pixels[2], 0xFFFF0000U);
  EXPECT_EQ(picture.pixels[17], 0xFFFFFFFFU) << "outside the rectangle it stays white";
  EXPECT_TRUE(renderer.Render({0, 5}, 1.0, [](Canvas&) {}).Empty());
}

/// A machine without a device, or with one that writes what it plays into the file CHARTPROJECT_HEARD.
TEST(SoundOfTheSystem, PlaysAWaveFileAndIsSilentWithoutADeviceOrAFile) {
  Win32Sound sound;
  char heard[MAX_PATH] = "";
  const bool device = GetEnvironmentVariableA("CHARTPROJECT_HEARD", heard, sizeof heard) > 0;
  EXPECT_EQ(sound.OutputDeviceCount() > 0, device);
  sound.Play(InTestFolder("missing.wav"), sound_flag::kFileName | sound_flag::kNoDefault);
  EXPECT_EQ(testing::FileContents(heard).find_first_not_of('\0'), std::string::npos);
  sound.Play(testing::TestFolder() + R"(\project\media\Complete.wav)", sound_flag::kFileName | sound_flag::kNoDefault);
  EXPECT_EQ(testing::FileContents(heard).find_first_not_of('\0') != std::string::npos, device);
}

TEST(ModuleFile, HasTheNameThatOtherProgramsKnow) {
  EXPECT_EQ(WithoutLongNamePrefix(L"\\\\?\\C:\\a\\b.dll"), L"C:\\a\\b.dll");
  EXPECT_EQ(WithoutLongNamePrefix(L"\\\\?\\UNC\\server\\share\\b.dll"), L"\\\\server\\share\\b.dll");
}

TEST(Locale, WritesMomentsAsTheUserDoes) {
  const Win32Locale locale;
  EXPECT_EQ(locale.Numbers().decimalSeparator, ".");
  const DateTime moment{2026, 1, 31, 8, 5, 9, 0};
  EXPECT_THAT(locale.DateText(moment), ::testing::HasSubstr("2026"));
  EXPECT_THAT(locale.TimeText(moment), ::testing::HasSubstr("05:09"));
}

}  // namespace
}  // namespace chartproject::win32
