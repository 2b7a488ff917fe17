#include "app/model.h"

#include "app/commands.h"

namespace trendaro {
namespace {

constexpr i32 kMainGraphHandle = 1;
constexpr i32 kSurveyGraphHandle = 2;

}  // namespace

Model::Model(Shell& user_shell) : shell(user_shell), PESG(kMainGraphHandle), PESGSurvey(kSurveyGraphHandle) {
  add_controls(*this);
}

}  // namespace trendaro
