#include "files/parameter_words.h"

#include <gtest/gtest.h>

#include "app/database_kernel.h"
#include "app/model.h"
#include "app/run_time_error.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

// A kernel that knows one word.
class WordKernel : public DatabaseKernel {
 public:
  std::string word;
  bool refuses = false;
  std::string buffer_given;

  i32 KSD_WriteToDatabaseEx(i16, i32, std::span<const f64>, i16) override { return 0; }
  i32 KSD_SetDatabaseChanText(i32, i16, const std::string&) override { return 0; }
  i32 KSD_SetDatabaseChanModified(i32, f64) override { return 0; }
  i32 KSD_SetDatabaseChanCurrLen(i32, i32) override { return 0; }
  i32 KSD_GetDatabaseChanCurrLen(i32) override { return 0; }
  i32 KSD_ACQTranslateParID(i16, std::string& buffer) override {
    if (refuses) throw RunTimeError{kHostMemberMissing};
    buffer_given = buffer;
    buffer.replace(0, word.size(), word);
    return 42;
  }
  i32 DB_QuickMath(i32, i32) override { return 0; }
};

class ParameterWordsTest : public testing::Test {
 protected:
  ParameterWordsTest() { model.Kernel = &kernel; }

  RecordingShell shell;
  WordKernel kernel;
  Model model{shell};
};

TEST_F(ParameterWordsTest, WordEndsAtItsFirstZeroByte) {
  kernel.word = std::string("Tiefpaß\r\n\0x\0", 13);
  EXPECT_EQ(TranslateParameterId(model, 3), "Tiefpaß");
  EXPECT_EQ(kernel.buffer_given, std::string(128, ' '));
  EXPECT_EQ(model.LastDatabaseStatus, 42);
}

TEST_F(ParameterWordsTest, EmptyWordStaysEmpty) {
  kernel.word = std::string("\0", 1);
  EXPECT_EQ(parameter_word(model, 3), "");
}

TEST_F(ParameterWordsTest, NothingIsAskedForZero) {
  kernel.word = std::string("x\0", 2);
  EXPECT_EQ(parameter_word(model, 0), "Nicht verfügbar");
  EXPECT_EQ(kernel.buffer_given, "");
}

TEST_F(ParameterWordsTest, WithoutAWordTheNumberStands) {
  kernel.refuses = true;
  EXPECT_EQ(TranslateParameterId(model, -7), "-7");
  model.Kernel = nullptr;
  EXPECT_EQ(TranslateParameterId(model, 12), "12");
}

}  // namespace
}  // namespace trendaro
