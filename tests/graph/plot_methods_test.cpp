#include "graph/plot_methods.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(PlotMethodsTest, EveryMethodStandsInAListAndBothListsAgree) {
  std::set<i32> methods;
  for (const PlotMethodChoice& choice : kFirstMethods) methods.insert(choice.method);
  for (const PlotMethodChoice& choice : kSecondMethods) methods.insert(choice.method);
  EXPECT_EQ(methods.size(), static_cast<std::size_t>(kMethodCount));
  for (const PlotMethodChoice& first : kFirstMethods)
    for (const PlotMethodChoice& second : kSecondMethods)
      EXPECT_EQ(std::string(first.name) == second.name, first.method == second.method) << first.name;
}

TEST(PlotMethodsTest, TheFirstListCountsFromZero) {
  for (std::size_t i = 0; i < kFirstMethods.size(); ++i)
    EXPECT_EQ(kFirstMethods[i].method, static_cast<i32>(i));
}

TEST(PlotMethodsTest, UnknownMethodsAreLines) {
  for (const i32 method : {-1, kMethodCount, 999, -2000000000}) {
    EXPECT_EQ(method_parts(method).body, MethodBody::Line);
    EXPECT_FALSE(method_parts(method).symbols);
  }
}

TEST(PlotMethodsTest, TheSideIsTakenOff) {
  EXPECT_EQ(method_without_side(1003), kMethodBars);
  EXPECT_EQ(method_without_side(3), kMethodBars);
  EXPECT_EQ(method_without_side(1000), kMethodLine);
}

}  // namespace
}  // namespace trendaro
