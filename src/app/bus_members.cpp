#include "app/bus_members.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/bus_names.h"
#include "app/bus_samples.h"
#include "app/bus_value.h"
#include "files/sample_array.h"

namespace trendaro {
namespace {

using Arguments = const QVariantList&;

constexpr i64 kPiece = i64{1} << 20;  // samples of one write
constexpr i16 kAppend = -1;
constexpr std::size_t kWordBuffer = 128;  // blanks that a parameter's word is written into

i16 small(Arguments arguments, int place) {
  return arguments.at(place).value<i16>();
}

i32 whole(Arguments arguments, int place) {
  return arguments.at(place).toInt();
}

std::string text(Arguments arguments, int place) {
  return arguments.at(place).toString().toStdString();
}

// The channel's samples, at most as many as asked for.
QVariantList read_data(MervanHost& host, DatabaseKernel&, Arguments arguments) {
  HostDatabase& database = host.DB();
  const i16 channel = small(arguments, 0);
  const i32 count = std::clamp(whole(arguments, 1), 0, std::max(0, database.GetChannelLength(channel)));
  SampleArray values(static_cast<std::size_t>(count));
  database.ReadData64(channel, values);
  return {QVariant::fromValue(samples_to_send(values))};
}

// A file may claim any length, so that it is read in pieces until the channel takes no more.
QVariantList write_to_database(MervanHost&, DatabaseKernel& kernel, Arguments arguments) {
  const auto file = arguments.at(2).value<QDBusUnixFileDescriptor>();
  const i64 count = samples_in(file);
  SampleArray piece;
  i32 status = 0;
  i16 append = small(arguments, 3);
  i64 done = 0;
  do {
    piece.resize(static_cast<std::size_t>(std::min(kPiece, count - done)));
    receive_samples(file, done, piece);
    status = kernel.KSD_WriteToDatabaseEx(small(arguments, 0), whole(arguments, 1), piece, append);
    append = kAppend;
    done += kPiece;
  } while (done < count && status != 0);
  return {status};
}

QVariantList translate_parameter(MervanHost&, DatabaseKernel& kernel, Arguments arguments) {
  std::string word(kWordBuffer, ' ');
  const i32 status = kernel.KSD_ACQTranslateParID(small(arguments, 0), word);
  return {status, QString::fromStdString(word.substr(0, word.find('\0')))};
}

constexpr auto kMembers = std::to_array<BusMember>({
    {"", "ProgressControl", "n", "",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       host.ProgressControl(small(given, 0));
       return {};
     }},
    {kDatabaseObject, "MaxChannels", "", "n",
     [](MervanHost& host, DatabaseKernel&, Arguments) -> QVariantList {
       return {QVariant::fromValue(host.DB().MaxChannels())};
     }},
    {kDatabaseObject, "GetChannelProperty", "nn", "v",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       return {bus_variant(host.DB().GetChannelProperty(small(given, 0), small(given, 1)))};
     }},
    {kDatabaseObject, "SetChannelProperty", "nnv", "",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       host.DB().SetChannelProperty(small(given, 0), small(given, 1), host_value(given.at(2)));
       return {};
     }},
    {kDatabaseObject, "GetChannelLength", "n", "i",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       return {host.DB().GetChannelLength(small(given, 0))};
     }},
    {kDatabaseObject, "ReadData64", "ni", "h", read_data},
    {kDatabaseObject, "SetImportProperty", "nv", "",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       host.DB().SetImportProperty(small(given, 0), host_value(given.at(1)));
       return {};
     }},
    {kDatabaseObject, "GetDataFileInfo", "snn", "i",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       return {host.DB().GetDataFileInfo(text(given, 0), small(given, 1), small(given, 2))};
     }},
    {kDatabaseObject, "ExecuteImport", "", "",
     [](MervanHost& host, DatabaseKernel&, Arguments) -> QVariantList {
       host.DB().ExecuteImport();
       return {};
     }},
    {kDatabaseObject, "ClearChannel", "n", "",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       host.DB().ClearChannel(small(given, 0));
       return {};
     }},
    {kDatabaseObject, "ClearAllChannels", "", "",
     [](MervanHost& host, DatabaseKernel&, Arguments) -> QVariantList {
       host.DB().ClearAllChannels();
       return {};
     }},
    {kDatabaseObject, "ShowDialog", "nn", "",
     [](MervanHost& host, DatabaseKernel&, Arguments given) -> QVariantList {
       host.DB().ShowDialog(small(given, 0), small(given, 1));
       return {};
     }},
    {kKernelObject, "KSD_WriteToDatabaseEx", "nihn", "i", write_to_database},
    {kKernelObject, "KSD_SetDatabaseChanText", "ins", "i",
     [](MervanHost&, DatabaseKernel& kernel, Arguments given) -> QVariantList {
       return {kernel.KSD_SetDatabaseChanText(whole(given, 0), small(given, 1), text(given, 2))};
     }},
    {kKernelObject, "KSD_SetDatabaseChanModified", "id", "i",
     [](MervanHost&, DatabaseKernel& kernel, Arguments given) -> QVariantList {
       return {kernel.KSD_SetDatabaseChanModified(whole(given, 0), given.at(1).toDouble())};
     }},
    {kKernelObject, "KSD_SetDatabaseChanCurrLen", "ii", "i",
     [](MervanHost&, DatabaseKernel& kernel, Arguments given) -> QVariantList {
       return {kernel.KSD_SetDatabaseChanCurrLen(whole(given, 0), whole(given, 1))};
     }},
    {kKernelObject, "KSD_GetDatabaseChanCurrLen", "i", "i",
     [](MervanHost&, DatabaseKernel& kernel, Arguments given) -> QVariantList {
       return {kernel.KSD_GetDatabaseChanCurrLen(whole(given, 0))};
     }},
    {kKernelObject, "KSD_ACQTranslateParID", "n", "is", translate_parameter},
    {kKernelObject, "DB_QuickMath", "ii", "i",
     [](MervanHost&, DatabaseKernel& kernel, Arguments given) -> QVariantList {
       return {kernel.DB_QuickMath(whole(given, 0), whole(given, 1))};
     }},
});

}  // namespace

std::span<const BusMember> bus_members() {
  return kMembers;
}

}  // namespace trendaro
