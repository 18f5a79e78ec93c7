// The numbered messages and the additional texts in their three languages.
#include <gmock/gmock.h>

#include <set>

#include "common/environment.h"
#include "common/extra_texts.h"
#include "common/message_table.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

/// Upper-case access key of a caption; 0 without one.
char AccessKey(std::string_view caption) {
  const std::size_t at = caption.find('&');
  return at == std::string_view::npos ? '\0' : static_cast<char>(std::toupper(caption[at + 1]));
}

TEST(Messages, TheBaseChoosesTheLanguage) {
  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
  EXPECT_EQ(LoadMessage(environment, 65), "Valor fora da faixa!");
  environment.languageBase = 1000;
  EXPECT_EQ(LoadMessage(environment, 65), "Value out of range !");
  EXPECT_EQ(LoadMessage(environment, 0), "Enter file name:");
  EXPECT_EQ(LoadMessage(environment, 100), "It was not possible to load ");
  environment.languageBase = 2000;
  EXPECT_EQ(LoadMessage(environment, 65), "¡Valor fuera de rango!");
  for (const int id : {0, 999, 1101, 1999, 3101, 4000, -1000})
    EXPECT_THROW(static_cast<void>(StringById(id)), RunTimeError);
}

TEST(Messages, TheThreeLanguagesFitTogether) {
  const std::set<int> leadingBlank{90, 99};
  const std::set<int> trailingBlank{52, 86, 87, 88, 89, 94, 98, 100};
  for (int k = 0; k < kMessageCount; ++k) {
    // Units, numbers and the names of parameters are no language's.
    const bool same = (k >= 22 && k <= 37) || k == 54 || (k >= 58 && k <= 60);
    for (const int base : {1000, 2000, 3000}) {
      const std::string_view text = StringById(base + k);
      EXPECT_FALSE(text.empty()) << base + k;
      EXPECT_EQ(text.front() == ' ', leadingBlank.contains(k)) << base + k;
      EXPECT_EQ(text.back() == ' ', trailingBlank.contains(k)) << base + k;
      EXPECT_TRUE(!same || text == StringById(2000 + k)) << base + k;
      EXPECT_EQ(AccessKey(text) != '\0', k == 8 || k == 10 || k == 12) << base + k;
    }
  }
  EXPECT_EQ(StringById(1037), "P012 - DI8 = 1");
}

TEST(Messages, AccessKeysDifferAndToolTipsNameThem) {
  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
  for (const std::int16_t base : {0, 1000, 2000}) {
    environment.languageBase = base;
    const auto key = [&](int message) { return AccessKey(LoadMessage(environment, message)); };
    const char newFile = AccessKey(LoadExtraText(environment, ExtraText::kNewFile));
    EXPECT_EQ(std::set<char>({key(8), key(10), key(12), newFile}).size(), 4U) << base;
    for (const int button : {10, 12}) {
      EXPECT_THAT(LoadMessage(environment, button + 1), testing::EndsWith(std::string("(Alt+") + key(button) + ")"));
    }
  }
}

TEST(ExtraTexts, KeepTheirPlacesInEveryLanguage) {
  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
  for (int i = 0; i < static_cast<int>(ExtraText::kCount); ++i) {
    std::set<std::string> places;
    for (const std::int16_t base : {0, 1000, 2000}) {
      environment.languageBase = base;
      const std::string text = LoadExtraText(environment, static_cast<ExtraText>(i));
      std::string numbers;
      for (const char* place : {"%1", "%2", "%3", "%4"}) numbers += text.find(place) != std::string::npos ? place : "";
      places.insert(numbers);
    }
    EXPECT_EQ(places.size(), 1U) << i;
  }
  environment.languageBase = 1000;
  EXPECT_EQ(LoadExtraText(environment, ExtraText::kHintEvent), "Choose an event.");
}

TEST(ExtraTexts, FillInTakesEachPlaceOnce) {
  EXPECT_EQ(FillIn("Duration %1, about %2.", {"00:10", "5 %1"}), "Duration 00:10, about 5 %1.");
  EXPECT_EQ(FillIn("100% %3 %", {"a", "b"}), "100% %3 %");
}

}  // namespace
}  // namespace chartproject
