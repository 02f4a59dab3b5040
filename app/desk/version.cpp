// SPDX-License-Identifier: MIT
#include "app/desk/version.h"

namespace quenlor::app {

Version ThisVersion() { return {QUENLOR_VERSION_MAJOR, QUENLOR_VERSION_MINOR, QUENLOR_VERSION_REVISION, ""}; }

std::string WindowCaption(const Version& version) {
  return "Quenlor Ver." + version.major + "." + version.minor + version.revision + version.comment;
}

std::string VersionText(const Version& version, const std::string& qt_version) {
  return WindowCaption(version) + "\n" + version.major + "." + version.minor + "." + version.revision +
         version.comment + ", commit " + BuildCommit() + ", Qt " + qt_version + "\n";
}

}  // namespace quenlor::app
