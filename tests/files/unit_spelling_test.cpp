#include "files/unit_spelling.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

using std::string_literals::operator""s;

TEST(UnitSpellingTest, EveryListedUnitTakesItsDisplayForm) {
  const std::pair<const char*, const char*> rows[] = {
      {"MV/V", "mV/V"}, {"VIN", "V in"},  {"MA", "mA"},   {"NC", "nC"},     {"OHM", "Ohm"},
      {"KHZ", "kHz"},   {"uM/M", "µm/m"}, {"uM", "µm"},   {"KIMP", "kImp"}, {"G", "g"},
      {"NM", "Nm"},     {"MM", "mm"},     {"BAR", "bar"}, {"MBAR", "mbar"}, {"HPAS", "HPas"},
      {"KT", "kT"},     {"KN", "kN"},     {"PPM", "ppm"}, {"KG", "kg"},     {"S", "s"}};
  for (const auto& [device, display] : rows) EXPECT_EQ(ConvertUnitSpelling(device, 1), display);
}

TEST(UnitSpellingTest, NulsCountAsBlanksAndOuterBlanksGo) {
  EXPECT_EQ(ConvertUnitSpelling("NM\0\0"s, 1), "Nm");
  EXPECT_EQ(ConvertUnitSpelling(" KG ", 1), "kg");
  EXPECT_EQ(ConvertUnitSpelling("\0V\0 "s, 1), "V");
  EXPECT_EQ(ConvertUnitSpelling("A\0B"s, 1), "A B");
  EXPECT_EQ(ConvertUnitSpelling("", 1), "");
}

TEST(UnitSpellingTest, OnlyWholeTextsOfTheSameCaseAreListed) {
  EXPECT_EQ(ConvertUnitSpelling("NMS", 1), "NMS");
  EXPECT_EQ(ConvertUnitSpelling("nm", 1), "nm");
}

TEST(UnitSpellingTest, OneDeviceCharacterChanges) {
  EXPECT_EQ(ConvertUnitSpelling("øC", 1), "°C");
  EXPECT_EQ(ConvertUnitSpelling("øCø", 1), "°Cø");
  EXPECT_EQ(ConvertUnitSpelling("æm", 1), "µm");
  EXPECT_EQ(ConvertUnitSpelling("æmø", 1), "æm°");
  EXPECT_EQ(ConvertUnitSpelling("pC", 1), "°C");
  EXPECT_EQ(ConvertUnitSpelling("pF", 1), "°F");
  EXPECT_EQ(ConvertUnitSpelling("pFpC", 1), "pF°C");
  EXPECT_EQ(ConvertUnitSpelling("æpC", 1), "µpC");
}

TEST(UnitSpellingTest, TheDeviceFormIsFourCharactersWide) {
  EXPECT_EQ(ConvertUnitSpelling("V", 0), "   V");
  EXPECT_EQ(ConvertUnitSpelling("°C", 0), "  øC");
  EXPECT_EQ(ConvertUnitSpelling("µm/m", 0), "æm/m");
  EXPECT_EQ(ConvertUnitSpelling("µm/µm", 0), "æm/µm");
  EXPECT_EQ(ConvertUnitSpelling("°µ", 0), "  øæ");
  EXPECT_EQ(ConvertUnitSpelling("Nm", 0), "  Nm");
}

}  // namespace
}  // namespace trendaro
