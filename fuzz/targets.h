// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quenlor::fuzz {

// One function a parser: gives it the input, whatever that is, and throws BrokenPromise when what comes out
// is not what the parser's header promises. Each is the whole of a fuzzer, and is run on its corpus by the
// ordinary tests.
void ColorSettings(std::string_view input);
void CommandLine(std::string_view input);
void CommandList(std::string_view input);
void DataFile(std::string_view input);
void LineSettings(std::string_view input);
void LineSplitter(std::string_view input);
void PortDirectory(std::string_view input);
void RawLog(std::string_view input);
void Reception(std::string_view input);
void SettingsList(std::string_view input);
void TextNumber(std::string_view input);
void Utf8(std::string_view input);
void Viscometer(std::string_view input);
void ViscometerOptions(std::string_view input);
void WindowState(std::string_view input);

}  // namespace quenlor::fuzz
