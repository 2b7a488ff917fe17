#include "graph/draw_arrays.h"

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace trendaro {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr f32 kNull = -1000000;

// Arrays in the memory of others that are full of a value.
DrawArrays arrays_in_memory_of(f64 stale, i32 curves, i32 slot_length, DrawKind kind = {}) {
  const auto elements = static_cast<std::size_t>(curves * slot_length);
  FormerArrays former{.x = std::make_shared<FlatArray>(elements, static_cast<f32>(stale)),
                      .y = std::make_shared<FlatArray>(elements, static_cast<f32>(stale)),
                      .x_of_dates = std::make_shared<SampleArray>(elements, stale)};
  return make_draw_arrays(curves, slot_length, kind, kNull, std::move(former));
}

TEST(DrawArraysTest, WhatNoCurveWroteIsNullInYAndZeroInX) {
  DrawArrays arrays = arrays_in_memory_of(77, 3, 4);
  write_y(slot_of(arrays, 0).DrawY, std::vector<f64>{1, 2}, {});
  write_line(slot_of(arrays, 2), 3, {.step = 2, .start = 5});
  fill_rest(arrays);
  EXPECT_THAT(arrays.DrawY,
              ElementsAre(1, 2, kNull, kNull, kNull, kNull, kNull, kNull, kNull, kNull, kNull, kNull));
  EXPECT_THAT(arrays.DrawX, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 5, 7, 9, 0));
  EXPECT_TRUE(arrays.DrawXII.empty());
  EXPECT_TRUE(arrays.DrawYDatabase.empty());
}

TEST(DrawArraysTest, AWriterOfEverySecondElementLeavesTheOthersNull) {
  DrawArrays arrays = arrays_in_memory_of(77, 1, 6);
  write_y(slot_of(arrays, 0).DrawY, std::vector<f64>{1, 2}, {}, 1, 2);
  write_x(slot_of(arrays, 0), std::vector<f64>{3, 4}, 0, 1, 0, 2);
  fill_rest(arrays);
  EXPECT_THAT(arrays.DrawY, ElementsAre(kNull, 1, kNull, 2, kNull, kNull));
  EXPECT_THAT(arrays.DrawX, ElementsAre(3, 0, 4, 0, 0, 0));
}

TEST(DrawArraysTest, APadBehindAGapLeavesTheGapNull) {
  DrawArrays arrays = arrays_in_memory_of(77, 1, 5, {.database = true, .date_axis = true});
  const CurveSlot slot = slot_of(arrays, 0);
  write_y(slot.DrawYDatabase, std::vector<f64>{1}, {});
  pad_y(slot.DrawYDatabase, 3, 9);
  pad_x(slot, 4, 8);
  fill_rest(arrays);
  EXPECT_THAT(arrays.DrawYDatabase, ElementsAre(1, kNull, kNull, 9, 9));
  EXPECT_THAT(arrays.DrawXII, ElementsAre(0, 0, 0, 0, 8));
  EXPECT_TRUE(arrays.DrawX.empty());
}

TEST(DrawArraysTest, ASlotThatIsClearedHoldsNothingOfWhatWasWritten) {
  DrawArrays arrays = arrays_in_memory_of(77, 1, 4);
  const CurveSlot slot = slot_of(arrays, 0);
  write_y(slot.DrawY, std::vector<f64>{1, 2, 3}, {});
  slot.DrawY.clear();
  write_y(slot.DrawY, std::vector<f64>{5}, {}, 1, 2);
  fill_rest(arrays);
  EXPECT_THAT(arrays.DrawY, ElementsAre(kNull, 5, kNull, kNull));
}

TEST(DrawArraysTest, AShorterSlotIsWrittenAsFarAsItGoes) {
  DrawArrays arrays = arrays_in_memory_of(77, 1, 4);
  const DrawSlot<f32> slot = slot_of(arrays, 0).DrawY.first(2);
  write_y(slot, std::vector<f64>{1, 2, 3}, {});
  write_y(slot, std::vector<f64>{4}, {}, 2);
  write_y(slot_of(arrays, 0).DrawY.first(9), std::vector<f64>{6}, {}, 3);
  fill_rest(arrays);
  EXPECT_THAT(arrays.DrawY, ElementsAre(1, 2, kNull, 6));
}

TEST(DrawArraysTest, ACurveWithoutASlotIsWrittenNowhere) {
  DrawArrays arrays = arrays_in_memory_of(77, 1, 2);
  const CurveSlot slot = slot_of(arrays, 1);
  write_y(slot.DrawY, std::vector<f64>{1}, {});
  pad_x(slot, 0, 3);
  slot.DrawY.clear();
  slot.DrawY.fill_rest();
  PointRoom(slot, 4).write(0, 1, 1);
  fill_rest(arrays);
  EXPECT_THAT(arrays.DrawY, Each(kNull));
  EXPECT_THAT(arrays.DrawX, Each(0));
}

TEST(DrawArraysTest, MemoryOfAboutTheSizeIsTakenOver) {
  constexpr std::size_t kHeld = 120;
  struct Row {
    i32 wanted;
    bool taken;
  };
  for (const Row& row : {Row{119, true}, Row{60, true}, Row{59, false}, Row{121, false}}) {
    FormerArrays former{.x = nullptr, .y = std::make_shared<FlatArray>(kHeld), .x_of_dates = nullptr};
    const DrawArrays arrays = make_draw_arrays(1, row.wanted, {}, kNull, std::move(former));
    EXPECT_EQ(arrays.DrawY.size(), static_cast<std::size_t>(row.wanted));
    EXPECT_EQ(arrays.DrawY.capacity(), row.taken ? kHeld : arrays.DrawY.size()) << row.wanted;
  }
}

TEST(DrawArraysTest, MemoryThatSomebodyElseHoldsStaysAsItIs) {
  const auto kept = std::make_shared<FlatArray>(3, 5.0F);
  DrawArrays arrays = make_draw_arrays(1, 3, {}, kNull, {.x = nullptr, .y = kept, .x_of_dates = nullptr});
  fill_rest(arrays);
  EXPECT_THAT(*kept, ElementsAre(5, 5, 5));
  EXPECT_THAT(arrays.DrawY, Each(kNull));
}

// The same arrays, filled at first and then written over.
struct PlainArrays {
  std::size_t length;
  std::vector<std::vector<f32>> y;
  std::vector<std::vector<f64>> x;

  PlainArrays(std::size_t curves, std::size_t slot_length)
      : length(slot_length),
        y(curves, std::vector<f32>(slot_length, kNull)),
        x(curves, std::vector<f64>(slot_length, 0)) {}

  void grow(std::size_t slot_length) {
    if (slot_length <= length) return;
    length = slot_length;
    for (auto& slot : y) slot.resize(length, kNull);
    for (auto& slot : x) slot.resize(length, 0);
  }
  template <typename T>
  void put(std::vector<T>& slot, std::size_t place, f64 value) const {
    if (place < length) slot[place] = static_cast<T>(value);
  }
};

class RandomWrites {
 public:
  explicit RandomWrites(u32 seed)
      : random_(seed),
        curves_(1 + random_() % 4),
        plain_(curves_, random_() % 30),
        arrays_(arrays_in_memory_of(-7, static_cast<i32>(curves_), static_cast<i32>(plain_.length),
                                    {.database = seed % 2 == 0, .date_axis = true})) {}

  void write() {
    const std::size_t curve = random_() % curves_;
    switch (random_() % 8) {
      case 0:
        return write_some_y(curve);
      case 1:
        return write_some_x(curve);
      case 2:
        return write_a_line(curve);
      case 3:
        return pad(curve);
      case 4:
        return write_points(curve);
      case 5:
        return clear(curve);
      case 6:
        return grow();
      default:
        return write_runs(curve);
    }
  }
  void expect_same() {
    fill_rest(arrays_);
    const FlatArray& y = arrays_.kind.database ? arrays_.DrawYDatabase : arrays_.DrawY;
    ASSERT_EQ(y.size(), curves_ * plain_.length);
    ASSERT_EQ(arrays_.DrawXII.size(), curves_ * plain_.length);
    for (std::size_t curve = 0; curve < curves_; ++curve)
      for (std::size_t i = 0; i < plain_.length; ++i) {
        ASSERT_EQ(y[curve * plain_.length + i], plain_.y[curve][i]) << curve << ' ' << i;
        ASSERT_EQ(arrays_.DrawXII[curve * plain_.length + i], plain_.x[curve][i]) << curve << ' ' << i;
      }
  }

 private:
  std::size_t any(std::size_t most) { return random_() % (most + 1); }
  DrawSlot<f32> y_slot(std::size_t curve) {
    const CurveSlot slot = slot_of(arrays_, curve);
    return arrays_.kind.database ? slot.DrawYDatabase : slot.DrawY;
  }
  std::vector<f64> values(std::size_t count) {
    std::vector<f64> list(count);
    for (f64& value : list) value = static_cast<f64>(random_() % 1000);
    return list;
  }
  void put_y(std::size_t curve, const std::vector<f64>& list, std::size_t first, std::size_t stride) {
    for (std::size_t i = 0; i < list.size(); ++i)
      plain_.put(plain_.y[curve], first + i * stride, -(list[i] + 0.5));
  }
  void write_some_y(std::size_t curve) {
    const std::vector<f64> list = values(any(40));
    const std::size_t first = any(10), stride = 1 + any(2);
    write_y(y_slot(curve), list, {.offset = 0.5, .sign = -1}, first, stride);
    put_y(curve, list, first, stride);
  }
  // Halves in turn, as the rows of a recording give them.
  void write_runs(std::size_t curve) {
    for (std::size_t first = 0; first < 12; first += 6)
      for (const std::size_t half : {std::size_t{0}, std::size_t{1}}) {
        const std::vector<f64> list = values(3);
        write_y(y_slot(curve), list, {.offset = 0.5, .sign = -1}, first + half, 2);
        put_y(curve, list, first + half, 2);
      }
  }
  void write_some_x(std::size_t curve) {
    const std::vector<f64> list = values(any(40));
    const std::size_t first = any(10), stride = 1 + any(2);
    write_x(slot_of(arrays_, curve), list, 3, -1, first, stride);
    for (std::size_t i = 0; i < list.size(); ++i)
      plain_.put(plain_.x[curve], first + i * stride, -(list[i] + 3));
  }
  void write_a_line(std::size_t curve) {
    const std::size_t points = any(40);
    write_line(slot_of(arrays_, curve), points, {.step = 0.1, .start = 7});
    for (std::size_t i = 0; i < points; ++i) plain_.put(plain_.x[curve], i, static_cast<f64>(i) * 0.1 + 7);
  }
  void pad(std::size_t curve) {
    const std::size_t first = any(40);
    pad_y(y_slot(curve), first, -3);
    pad_x(slot_of(arrays_, curve), first, -4);
    for (std::size_t i = first; i < plain_.length; ++i) {
      plain_.put(plain_.y[curve], i, -3);
      plain_.put(plain_.x[curve], i, -4);
    }
  }
  // Points of which some are left out, as by a walk that ends early. DrawY alone is written to by points.
  void write_points(std::size_t curve) {
    const std::size_t room = any(40), written = any(room);
    const PointRoom points(slot_of(arrays_, curve), room);
    for (std::size_t i = 0; i < written; ++i) {
      points.write(i, 11, 12);
      plain_.put(plain_.x[curve], i, 11);
      if (!arrays_.kind.database) plain_.put(plain_.y[curve], i, 12);
    }
  }
  void clear(std::size_t curve) {
    y_slot(curve).clear();
    std::ranges::fill(plain_.y[curve], kNull);
  }
  void grow() {
    if (plain_.length == 0) return;
    const std::size_t length = any(60);
    grow_slots(arrays_, static_cast<i32>(length));
    plain_.grow(length);
  }

  std::mt19937 random_;
  std::size_t curves_;
  PlainArrays plain_;
  DrawArrays arrays_;
};

TEST(DrawArraysTest, AnyWritesGiveWhatArraysFilledAtFirstHold) {
  for (u32 seed = 0; seed < 3000; ++seed) {
    SCOPED_TRACE(seed);
    RandomWrites writes(seed);
    for (u32 i = 0; i < seed % 12; ++i) writes.write();
    writes.expect_same();
    if (testing::Test::HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace trendaro
