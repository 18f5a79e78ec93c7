// The keyword table is a rule: twelve families with six variants each, and four single keywords.
#include "drive/unit_codes.h"

#include <array>

#include "common/environment/environment.h"
#include "common/environment/language.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

constexpr int kVariantCount = 6;
constexpr std::array<std::string_view, 12> kFamilies{"CURRENT",     "DIRECT",    "DIVIDEDBY1000", "DIVIDEDBY100",
                                                     "DIVIDEDBY10", "FREQUENCY", "GAIN",          "PERCENTAGE",
                                                     "POWER",       "TIME",      "VOLTAGE",       "13BITSRPM"};
constexpr std::array<std::string_view, 4> kSingleKeywords{"DEPENDSONP210", "DEPENDSONP529", "DI1DI8",
                                                          "RL1RL2RL3DO1DO2"};
constexpr std::int32_t kUnknownUnitHelpContext = 152;

}  // namespace

std::int16_t FindUnitCode(std::string_view keyword) {
  const std::string upper = ToUpperAscii(keyword);
  for (std::size_t family = 0; family < kFamilies.size(); ++family) {
    for (int variant = 0; variant < kVariantCount; ++variant) {
      if (upper == std::string(kFamilies[family]) + "F" + std::to_string(variant)) {
        return static_cast<std::int16_t>(kVariantCount * static_cast<int>(family) + variant + 1);
      }
    }
  }
  for (std::size_t i = 0; i < kSingleKeywords.size(); ++i) {
    if (upper == kSingleKeywords[i]) {
      return static_cast<std::int16_t>(kVariantCount * static_cast<int>(kFamilies.size()) + static_cast<int>(i) + 1);
    }
  }
  return kUnknownUnitCode;
}

std::int16_t UnitCode(Environment& environment, std::string_view keyword, int parameter) {
  const std::int16_t code = FindUnitCode(keyword);
  if (code == kUnknownUnitCode) {
    ShowMessage(environment,
                FillIn(LoadMessage(environment, Text::kUnknownUnit),
                       {std::string(keyword) + " (" + ParameterName(parameter) + ")"}),
                box_style::kCritical, environment.helpFile, kUnknownUnitHelpContext);
  }
  return code;
}

std::string ParameterName(int parameter) {
  return "P" + ParameterDigits(parameter);
}

std::string ParameterDigits(int parameter) {
  return FormatDigits(parameter, 3);
}

}  // namespace chartproject
