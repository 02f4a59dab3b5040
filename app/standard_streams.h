// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

// What a shell gives a program: the words it was called with, its standard streams, and what else it hands
// over to be read once from its beginning to its end.
namespace quenlor::app {

// The words after the program's own name, in UTF-8 where they are text.
std::vector<std::string> Arguments(int argc, char** argv);

// To be called before anything is opened: no file may come to stand where a stream was closed, or what is
// said to the stream would be written into it. Whoever uses a closed stream fails as if it were still closed.
void GuardClosedStreams();

// For a program that goes on in its window: on Windows, where the prompt has long come back, neither Ctrl+C
// there nor closing the console is meant for it.
void LeaveConsole();

// A reader that went away, and a file that may grow no more, are told by the write that fails.
void FailInsteadOfDying();

// Whether the name is that of a stream: "-", a pipe (the shell's "<(…)" is one), or standard input by its
// path.
bool IsStream(const std::string& name);

// Waits for the end of it.
platform::Result<std::string> ReadStream(const std::string& name);

// How a file or a stream is called in messages.
std::string SpokenName(const std::string& name);

// As it stands; to a terminal, which would obey them, without the control characters of the data.
platform::Done WriteStandardOutput(std::string_view text);

// The text with control characters as escapes ("\x1B"), but for line ends and tabs.
std::string ForTerminal(std::string_view text);

// Always one line on standard error, whatever a file is called.
void Complain(std::string failure);

}  // namespace quenlor::app
