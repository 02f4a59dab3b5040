// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace quenlor::platform {

// What a failure is for whoever has to go on after it.
enum class FailureKind {
  kNotFound,    // there is no such file, or no folder for it
  kPermission,  // it is there, and this user may not use it so
  kFull,        // no room is left: on the disk, of what the user may fill, in a file as large as files can be
  kLeft,        // the operator has left it
  kOther,
};

// What could not be done, in words an operator understands: "cannot replace data.csv: No space
// left on device".
struct Failure {
  std::string text;
  FailureKind kind = FailureKind::kOther;
};

// "cannot read a.csv: Permission denied", of the kind that the reason is.
inline Failure Cannot(const std::string& what, const Failure& reason) {
  return {"cannot " + what + ": " + reason.text, reason.kind};
}

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

// Whether it failed since nothing is there. What is there and cannot be used is no such case.
inline bool NotFound(const Done& done) { return done && done->kind == FailureKind::kNotFound; }
template <class T>
bool NotFound(const Result<T>& result) {
  return !result.ok() && result.failure().kind == FailureKind::kNotFound;
}

}  // namespace quenlor::platform
