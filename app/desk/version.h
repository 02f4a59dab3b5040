// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quenlor::app {

struct Version {
  std::string major;
  std::string minor;
  std::string revision;
  std::string comment;  // stands behind the number as it is, for instance " beta"
};

// The version of this build.
Version ThisVersion();

// The commit that it was built from, with "-dirty" when files were changed since; "unknown" where nothing
// tells.
std::string BuildCommit();

// The window's caption: "Quenlor Ver.1.02" is version 1.0 with revision 2.
std::string WindowCaption(const Version& version);

// The text of --version, in two lines: the caption, then version, commit and the Qt that is used.
std::string VersionText(const Version& version, const std::string& qt_version);

}  // namespace quenlor::app
