# Writes commit.cpp: the commit of SOURCE_FOLDER, told by git or, in exported sources, by what the export put into
# commit.txt. Run at each build; the file is touched only when it changes.

set(commit "")
if(EXISTS ${SOURCE_FOLDER}/.git)
  execute_process(COMMAND git describe --always --exclude=* --abbrev=12 --dirty
    WORKING_DIRECTORY ${SOURCE_FOLDER} OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
else()
  file(STRINGS ${SOURCE_FOLDER}/cmake/commit.txt exported LIMIT_COUNT 1)
  if(exported MATCHES "^[0-9a-f]+$")
    string(SUBSTRING ${exported} 0 12 commit)
  endif()
endif()
if(commit STREQUAL "")
  set(commit unknown)
endif()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/commit.cpp @ONLY NEWLINE_STYLE LF CONTENT
[=[// SPDX-License-Identifier: MIT
#include "app/desk/version.h"

namespace quenlor::app {

std::string BuildCommit() { return "@commit@"; }

}  // namespace quenlor::app
]=])
