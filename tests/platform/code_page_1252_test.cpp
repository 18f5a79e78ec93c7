#include "platform/posix/code_page_1252.h"

#include <gtest/gtest.h>

namespace chartproject {
namespace {

TEST(CodePage1252, EveryByteComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(CodePage1252().Encode(CodePage1252().Decode(bytes)), bytes);
}

TEST(CodePage1252, KnownCharacters) {
  EXPECT_EQ(CodePage1252().Decode("\x80 \x8D \x99 \xE7\xE3o"), "€ \u008D ™ ção");
  EXPECT_EQ(CodePage1252().Encode("Tensão – 5 €"), "Tens\xE3o \x96 5 \x80");
}

TEST(CodePage1252, WhatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(CodePage1252().Encode("Ω日😀."), "???.");
  EXPECT_EQ(CodePage1252().Encode("a\xFFz\xE7"), "a?z?") << "no UTF-8";
}

}  // namespace
}  // namespace chartproject
