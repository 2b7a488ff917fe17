#include <vector>

#include <gtest/gtest.h>

#include "app/bus_host.h"
#include "app/bus_members.h"
#include "app/run_time_error.h"
#include "bus/private_bus.h"

namespace trendaro {
namespace {

constexpr const char* kEveryMember[] = {"ProgressControl",
                                        "MaxChannels",
                                        "GetChannelProperty",
                                        "SetChannelProperty",
                                        "GetChannelLength",
                                        "ReadData64",
                                        "SetImportProperty",
                                        "GetDataFileInfo",
                                        "ExecuteImport",
                                        "ClearChannel",
                                        "ClearAllChannels",
                                        "ShowDialog",
                                        "KSD_WriteToDatabaseEx",
                                        "KSD_SetDatabaseChanText",
                                        "KSD_SetDatabaseChanModified",
                                        "KSD_SetDatabaseChanCurrLen",
                                        "KSD_GetDatabaseChanCurrLen",
                                        "KSD_ACQTranslateParID",
                                        "DB_QuickMath"};

// Calls a member by its name with arguments that any host takes.
void call_member(BusHost& host, const std::string& name) {
  std::vector<f64> values(2);
  std::string word(128, ' ');
  if (name == "ProgressControl") host.ProgressControl(2);
  if (name == "MaxChannels") host.MaxChannels();
  if (name == "GetChannelProperty") host.GetChannelProperty(1, kChannelName);
  if (name == "SetChannelProperty") host.SetChannelProperty(1, kChannelName, std::string("n"));
  if (name == "GetChannelLength") host.GetChannelLength(1);
  if (name == "ReadData64") host.ReadData64(1, values);
  if (name == "SetImportProperty") host.SetImportProperty(kImportTarget, i16{1});
  if (name == "GetDataFileInfo") host.GetDataFileInfo("/none", 3, 1);
  if (name == "ExecuteImport") host.ExecuteImport();
  if (name == "ClearChannel") host.ClearChannel(1);
  if (name == "ClearAllChannels") host.ClearAllChannels();
  if (name == "ShowDialog") host.ShowDialog(6, 0);
  if (name == "KSD_WriteToDatabaseEx") host.KSD_WriteToDatabaseEx(1, 1, values, 0);
  if (name == "KSD_SetDatabaseChanText") host.KSD_SetDatabaseChanText(1, kChanName, "n");
  if (name == "KSD_SetDatabaseChanModified") host.KSD_SetDatabaseChanModified(1, 1);
  if (name == "KSD_SetDatabaseChanCurrLen") host.KSD_SetDatabaseChanCurrLen(1, 1);
  if (name == "KSD_GetDatabaseChanCurrLen") host.KSD_GetDatabaseChanCurrLen(1);
  if (name == "KSD_ACQTranslateParID") host.KSD_ACQTranslateParID(1, word);
  if (name == "DB_QuickMath") host.DB_QuickMath(1, 2);
}

i16 failure_of(BusHost& host, const std::string& name) {
  try {
    call_member(host, name);
  } catch (const RunTimeError& failure) {
    return failure.number;
  }
  return 0;
}

// A host with one fault in one member.
struct OddHost {
  OddHost(const PrivateBus& bus, const char* fault, const std::string& member)
      : program(&bus, ODD_HOST, {QLatin1String(fault), QString::fromStdString(member)}),
        host(bus.connection(), {QLatin1String(kHostService), QLatin1String(kHostPath)}) {
    program.start();
    bus.wait_for(kHostService);
  }

  Program program;
  BusHost host;
};

TEST(OddHostTest, EveryMemberIsServed) {
  std::vector<std::string> served;
  for (const BusMember& member : bus_members()) served.emplace_back(member.name);
  EXPECT_EQ(served, std::vector<std::string>(std::begin(kEveryMember), std::end(kEveryMember)));
}

TEST(OddHostTest, MissingMemberIsAFailureOfThatMemberAlone) {
  const PrivateBus bus;
  for (const std::string member : kEveryMember) {
    OddHost odd(bus, "lacks", member);
    EXPECT_EQ(failure_of(odd.host, member), kHostMemberMissing) << member;
    EXPECT_EQ(failure_of(odd.host, member == "MaxChannels" ? "ClearChannel" : "MaxChannels"), 0) << member;
  }
}

TEST(OddHostTest, AnswerOfAnotherTypeIsAMismatch) {
  const PrivateBus bus;
  for (const std::string member : kEveryMember) {
    OddHost odd(bus, "wrong", member);
    EXPECT_EQ(failure_of(odd.host, member), kTypeMismatch) << member;
  }
}

TEST(OddHostTest, HostThatDiesInsideOfACallFailsIt) {
  const PrivateBus bus;
  for (const std::string member : {"ExecuteImport", "ReadData64", "KSD_WriteToDatabaseEx", "ShowDialog"}) {
    OddHost odd(bus, "dies", member);
    EXPECT_EQ(failure_of(odd.host, member), kHostCallFailed) << member;
    EXPECT_EQ(failure_of(odd.host, member), kHostCallFailed) << member;
  }
}

TEST(OddHostTest, ObjectThatIsNoneLacksEveryMember) {
  const PrivateBus bus;
  const OddHost odd(bus, "none", "");
  BusHost elsewhere(bus.connection(), {QLatin1String(kHostService), QStringLiteral("/elsewhere")});
  EXPECT_EQ(failure_of(elsewhere, "MaxChannels"), kHostMemberMissing);
}

TEST(OddHostTest, ServiceThatIsNoneIsNotCreated) {
  const PrivateBus bus;
  BusHost host(bus.connection(), {QLatin1String(kHostService), QLatin1String(kHostPath)});
  EXPECT_THROW(host.create(), RunTimeError);
}

}  // namespace
}  // namespace trendaro
