#include "files/loader_result.h"

namespace trendaro {

void forget_description(LoaderResult& result) {
  result.FileChannelCount = 0;
  result.FileChannelNames.clear();
  result.FileChannelUnits.clear();
  result.FileChannelRates.clear();
  result.FileChannelPoints.clear();
  result.FileChannelPointsEstimate.clear();
  forget_working_copies(result);
  result.FileReduceFactor = 0;
  result.FileReduceBlock = 0;
  result.FileDateText.clear();
  result.FileCommentText.clear();
  result.FileChannelComment.clear();
  result.ChannelParams.erase(0);
  result.ChannelExtras.erase(0);
}

void forget_working_copies(LoaderResult& result) {
  result.FileHeaderPoints.clear();
  result.FileChannelKinds.clear();
  result.FileChannelFormats.clear();
}

}  // namespace trendaro
