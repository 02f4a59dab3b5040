// SPDX-License-Identifier: MIT
#include "graph/shown_labels.h"

#include <vector>

#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

TEST(LabelStride, IsTheSmallestThatDividesTheAxisAndLeavesRoom) {
  EXPECT_EQ(LabelStride(10, 10, 6), 1);
  EXPECT_EQ(LabelStride(11, 10, 6), 2);
  EXPECT_EQ(LabelStride(21, 10, 6), 3);
  EXPECT_EQ(LabelStride(11, 10, 10), 2);
  EXPECT_EQ(LabelStride(21, 10, 10), 5);
}

TEST(LabelStride, WithoutRoomForAnyTheEndsAloneRemain) {
  EXPECT_EQ(LabelStride(31, 10, 6), 6);
  EXPECT_EQ(LabelStride(51, 10, 10), 10);
  EXPECT_EQ(LabelStride(1, 0, 10), 10);
}

std::array<TickLabel, 10> At(const std::vector<double>& places) {
  std::array<TickLabel, 10> labels;
  for (std::size_t i = 0; i < places.size(); ++i) labels[i + 1] = {"1", places[i]};
  return labels;
}

std::vector<std::size_t> Shown(const std::array<TickLabel, 10>& labels, double least_distance) {
  std::vector<std::size_t> shown;
  const auto apart = LabelsApart(labels, least_distance);
  for (std::size_t i = 0; i < apart.size(); ++i) {
    if (apart[i]) shown.push_back(i);
  }
  return shown;
}

using Places = std::vector<std::size_t>;

TEST(LabelsApart, AreCountedFromTheLastOneShown) {
  EXPECT_EQ(Shown(At({0.2, 0.31, 0.35, 0.42, 0.55}), 0.1), (Places{1, 2, 4, 5}));
}

TEST(LabelsApart, KeepTheirDistanceFromTheEnds) {
  EXPECT_EQ(Shown(At({0.05, 0.5, 0.95}), 0.1), (Places{2}));
  EXPECT_TRUE(Shown(At({0.5}), 0.6).empty());
}

TEST(LabelsApart, ALabelThatIsNotInUseIsNotShown) {
  EXPECT_EQ(Shown(At({0.5}), 0), (Places{1}));
  EXPECT_TRUE(Shown({}, 0).empty());
}

}  // namespace
}  // namespace quenlor::graph
