// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>

#include "platform/result.h"

namespace quenlor::app {

// Why a folder that is chosen ("" when none is) cannot be used.
platform::Done CannotUseFolder(const std::string& chosen);

// Why no files can be kept in it.
platform::Done CannotKeepFilesIn(const std::string& folder);

// Where the program keeps its files: `chosen` when it is given; else the folder of the executable; but
// the user's own data folder, made when missing, when the program is installed, or that folder cannot be
// written.
//
// An installed copy is known by what installing puts beside its "bin", wherever that may be; an unpacked copy
// has nothing there.
std::string ProgramFolder(const std::string& chosen, const QString& executable_folder,
                          const QString& user_folder);

// The same for this running program.
std::string ProgramFolder(const std::string& chosen);

// Where a program that only reads its files finds them: `chosen` when it is given; else the folder of the
// executable when the settings have been kept there by a copy that is not installed, else the user's. Nothing
// is made or tried.
std::string FolderToRead(const std::string& chosen, const QString& executable_folder,
                         const QString& settings_name, const QString& user_folder);

// The same for this running program.
std::string FolderToRead(const std::string& chosen);

}  // namespace quenlor::app
