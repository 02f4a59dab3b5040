// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace quenlor::platform {

// What could not be done, in words an operator understands: "cannot replace data.csv: No space
// left on device".
struct Failure {
  std::string text;
};

// Nothing when it worked, else what failed.
using Done = std::optional<Failure>;

// A value, or what failed instead. Ask ok() before value().
template <class T>
class Result {
 public:
  Result(T value) : content_(std::move(value)) {}
  Result(Failure failure) : content_(std::move(failure)) {}

  bool ok() const { return content_.index() == 0; }
  T& value() { return std::get<0>(content_); }
  const T& value() const { return std::get<0>(content_); }
  const Failure& failure() const { return std::get<1>(content_); }

 private:
  std::variant<T, Failure> content_;
};

}  // namespace quenlor::platform
