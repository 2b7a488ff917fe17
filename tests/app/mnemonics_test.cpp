#include "app/mnemonics.h"

#include <map>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

TEST(MnemonicsTest, BeginningOfTheFirstWordIsTakenFirst) {
  EXPECT_THAT(with_mnemonics({"Titel", "Farben"}), ElementsAre("&Titel", "&Farben"));
}

TEST(MnemonicsTest, TakenBeginningsGiveWayToOtherWordsAndThenToAnyLetter) {
  EXPECT_THAT(with_mnemonics({"Keine", "Kein Gitter", "Kie"}), ElementsAre("&Keine", "Kein &Gitter", "K&ie"));
}

TEST(MnemonicsTest, CaseMakesNoDifference) {
  EXPECT_THAT(with_mnemonics({"an", "Ab"}), ElementsAre("&an", "A&b"));
}

TEST(MnemonicsTest, GivenMnemonicsStayAndAreTakenForAllOthers) {
  EXPECT_THAT(with_mnemonics({"Bild", "&Beenden"}), ElementsAre("B&ild", "&Beenden"));
}

TEST(MnemonicsTest, LettersOutsideOfAsciiAndSignsAreNoKeys) {
  EXPECT_THAT(with_mnemonics({"Über...", "Öl + °"}), ElementsAre("Ü&ber...", "Ö&l + °"));
}

TEST(MnemonicsTest, CaptionWithoutAFreeLetterStaysAsItIs) {
  EXPECT_THAT(with_mnemonics({"A", "a", "..."}), ElementsAre("&A", "a", "..."));
}

TEST(MnemonicsTest, EveryEntryOfEveryMenuGetsAKeyOfItsOwn) {
  std::map<std::string, std::vector<std::string>> menus;
  for (const Command& command : commands())
    if (command.caption != nullptr && command.parent != nullptr)
      menus[command.parent].emplace_back(command.caption);
  ASSERT_GT(menus.size(), 10U);
  for (const auto& [menu, captions] : menus) {
    std::set<char> keys;
    for (const std::string& caption : with_mnemonics(captions)) {
      const auto mark = caption.find('&');
      ASSERT_NE(mark, std::string::npos) << menu << ": " << caption;
      EXPECT_TRUE(keys.insert(static_cast<char>(std::tolower(caption[mark + 1]))).second) << caption;
    }
  }
}

}  // namespace
}  // namespace trendaro
