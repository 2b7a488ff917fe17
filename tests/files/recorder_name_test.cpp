#include "files/recorder_name.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

RecorderName split(std::string field, i32 channel = 3, i32 sub_channel = 2) {
  field.resize(kNameFieldBytes, ' ');
  return split_recorder_name(field, channel, sub_channel);
}

TEST(RecorderNameTest, QuotedTextIsTheName) {
  EXPECT_EQ(split("\"Kraft vorn\"").name, "Kraft vorn");
  EXPECT_EQ(split("\"  Kraft  \"").name, "Kraft");
}

TEST(RecorderNameTest, SemicolonDividesNameAndComment) {
  const RecorderName name = split("\"Kraft;links; oben\"");
  EXPECT_EQ(name.name, "Kraft");
  EXPECT_EQ(name.comment, "links; oben");
  EXPECT_EQ(split("\"A;b\"").name, "A");
  EXPECT_EQ(split("\"A;b\"").comment, "b");
}

TEST(RecorderNameTest, SemicolonInFirstPlaceDividesNothing) {
  const RecorderName name = split("\";links;oben\"");
  EXPECT_EQ(name.name, ";links;oben");
  EXPECT_EQ(name.comment, "");
}

TEST(RecorderNameTest, TextBehindTheSecondQuoteIsDropped) {
  EXPECT_EQ(split("\"Weg\" \"Rest\"").name, "Weg");
}

TEST(RecorderNameTest, LastCharacterOfTheFieldGoesWithTheFirst) {
  EXPECT_EQ(split("\"" + std::string(46, 'x')).name, std::string(45, 'x'));
}

TEST(RecorderNameTest, WithoutAQuoteThereIsOnlyTheDefaultName) {
  EXPECT_EQ(split("Kraft").name, "TLQ CH 3.2");
  EXPECT_EQ(split("\"\"").name, "TLQ CH 3.2");
  EXPECT_EQ(split("").name, "TLQ CH 3.2");
  EXPECT_EQ(split_recorder_name("", 4, 0).name, "TLQ CH 4.0");
  EXPECT_EQ(split_recorder_name("\"", 4, 0).name, "TLQ CH 4.0");
}

TEST(RecorderNameTest, TimeChannelsHaveFixedNames) {
  EXPECT_EQ(split("\"Zeit\"", 17).name, "TLQ 17 (Zeitkanal)");
  EXPECT_EQ(split("", 18).name, "TLQ 18 (Zeitkanal Übertrag)");
  EXPECT_EQ(split("", 19, 7).name, "TLQ CH 19.7");
}

TEST(RecorderNameTest, BytesOfTheCodePageBecomeCharacters) {
  EXPECT_EQ(split("\"\xD6ltemperatur;\xB0\"").name, "Öltemperatur");
  EXPECT_EQ(split("\"\xD6ltemperatur;\xB0\"").comment, "°");
}

}  // namespace
}  // namespace trendaro
