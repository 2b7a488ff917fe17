#include "app/text_codepage.h"

#include <set>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(TextCodepageTest, UmlautsAndSignsOfTheCodePage) {
  EXPECT_EQ(utf8_from_codepage("Me\xDFwert \xB5m/m \x80"), "Meßwert µm/m €");
  EXPECT_EQ(codepage_from_utf8("Meßwert µm/m €"), "Me\xDFwert \xB5m/m \x80");
}

TEST(TextCodepageTest, EveryByteComesBackAndNoTwoShareACharacter) {
  std::set<std::string> characters;
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    const std::string text = utf8_from_codepage(one);
    EXPECT_EQ(codepage_from_utf8(text), one) << byte;
    characters.insert(text);
  }
  EXPECT_EQ(characters.size(), 256u);
}

TEST(TextCodepageTest, CharactersOutsideBecomeQuestionMarks) {
  EXPECT_EQ(codepage_from_utf8("Ω"), "?");
  EXPECT_EQ(codepage_from_utf8("\xC3"), "?");
  EXPECT_EQ(codepage_from_utf8("\xFFx"), "?x");
}

}  // namespace
}  // namespace trendaro
