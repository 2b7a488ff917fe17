#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/one_based.h"
#include "app/types.h"
#include "files/channel_records.h"
#include "files/sample_array.h"

namespace trendaro {

// What LoadMeasurementFile found in the file it read last. Each call replaces it wholly, so a caller copies
// what it needs before the next load. Texts are UTF-8.
struct LoaderResult {
  i16 FileChannelCount = 0;  // recorder id 6002: twice the entries; one less for each time-carry entry
  OneBased<std::string> FileChannelNames;
  OneBased<std::string> FileChannelUnits;
  OneBased<f32> FileChannelRates;  // sample interval of each channel in milliseconds

  // Samples per channel. Standard and recorder files: index 0 is channel 1. Block files: -1 in the slots that
  // the header pass visits (from 0), then counted with index n for channel n while values are read.
  // One slot more than there are channels.
  std::vector<i32> FileChannelPoints;
  OneBased<i32> FileChannelPointsEstimate;  // block files: worked out from the file size

  std::vector<i32> FileHeaderPoints;    // standard files: as FileChannelPoints; erased after modes 1 and 2
  std::vector<i16> FileChannelKinds;    // standard files, from 0: 0 numeric, 1 text; erased after modes 1, 2
  std::vector<i16> FileChannelFormats;  // standard files, from 0: bytes per sample; erased after modes 1, 2

  SampleArray
      FileChannelValues;  // mode 1: values of the requested channel; kept until the next load of values

  i16 FileId = 0;            // standard, block and unknown files; untouched by recorder files
  i32 FileReduceFactor = 0;  // recorder 6002, 6012: samples of the measurement file behind one stored sample
  i32 FileReduceBlock = 0;   // standard from 5010: samples behind one minimum and maximum; 0 in a full file
  std::string FileDateText;
  std::string FileCommentText;     // recorder files
  std::string FileChannelComment;  // of the requested channel; a recording's where its channel has none

  // Index 0: the channel requested last; index n: database channel n. A map, because a mode 2 load may name
  // any database channel; absent entries are defaults.
  std::map<i32, ChannelParamRecord> ChannelParams;
  std::map<i32, ChannelExtraRecord> ChannelExtras;
};

// Takes away what a file was described by. FileChannelValues, FileId and the records of database channels
// stay.
void forget_description(LoaderResult& result);

// Takes away FileHeaderPoints, FileChannelKinds and FileChannelFormats.
void forget_working_copies(LoaderResult& result);

}  // namespace trendaro
