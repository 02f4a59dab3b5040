// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quenlor::app {

// Where the program keeps its files: `chosen` when it is given; else the folder of the executable; but
// the user's own data folder when the program is installed, or that folder cannot be written. Made when
// missing.
//
// An installed copy is known by what installing puts beside its "bin", wherever that may be; an unpacked copy
// has nothing there.
QString ProgramFolder(const QString& chosen, const QString& executable_folder, const QString& user_folder);

// The same for this running program.
QString ProgramFolder(const QString& chosen);

// Where a program that only reads its files finds them: `chosen` when it is given; else the folder of the
// executable when the settings have been kept there by a copy that is not installed, else the user's. Nothing
// is made or tried.
QString FolderToRead(const QString& chosen, const QString& executable_folder, const QString& settings_name,
                     const QString& user_folder);

// The same for this running program.
QString FolderToRead(const QString& chosen);

}  // namespace quenlor::app
