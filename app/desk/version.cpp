// SPDX-License-Identifier: MIT
#include "app/desk/version.h"

namespace quenlor::app {

Version ThisVersion() { return {QUENLOR_VERSION_MAJOR, QUENLOR_VERSION_MINOR, QUENLOR_VERSION_REVISION, ""}; }

std::string WindowCaption(const Version& version) {
  return "Quenlor Ver." + version.major + "." + version.minor + version.revision + version.comment;
}

}  // namespace quenlor::app
