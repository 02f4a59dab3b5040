// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quenlor::reports {

// The univariate reference data of the National Institute of Standards and Technology (Statistical Reference
// Datasets), as texts, with the average and the standard deviation that it certifies for them.
struct CertifiedData {
  const char* name;
  std::vector<std::string> texts;
  double average;
  double standard_deviation;
  int digits;  // of the standard deviation that a double of every text still allows
};

std::vector<CertifiedData> AllCertifiedData();

}  // namespace quenlor::reports
