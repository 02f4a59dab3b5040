// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quenlor::app {

// Where the program keeps its files: `chosen` when it is given; else the folder of the executable; but
// the user's own data folder when that is the place where programs are installed, or cannot be written.
// Made when missing.
QString ProgramFolder(const QString& chosen, const QString& executable_folder,
                      const QString& installed_folder, const QString& user_folder);

// The same for this running program.
QString ProgramFolder(const QString& chosen);

// Where a program that only reads its files finds them: `chosen` when it is given; else the folder of the
// executable when settings have been kept there, else the user's. Nothing is made or tried.
QString FolderToRead(const QString& chosen, const QString& executable_folder, const QString& user_folder);

// The same for this running program.
QString FolderToRead(const QString& chosen);

}  // namespace quenlor::app
