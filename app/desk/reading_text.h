// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/desk/measure_options.h"
#include "data/document.h"

namespace quenlor::app {

// The newest reading as one line for standard output, in UTF-8 and ended by LF.
//
// Text: the row's cells divided by tabs, as the table copies them. CSV (RFC 4180): the same cells;
// before the first reading of all a line with the titles. JSON: one object,
//
//   {"run": 2, "time": 60, "viscosity": 1234.5, "temperature": 25.1, "date": "2026/11/21 09:30:00",
//    "cells": ["2", "00:01:00", "1234.5", "mPa.s", "25.1", "C"]}
//
// "time" is in seconds, as the time cell tells it; a number is null where its cell begins with none.
std::string ReadingText(OutputFormat format, const data::Document& document);

}  // namespace quenlor::app
