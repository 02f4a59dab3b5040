// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tests/actions/action.h"
#include "tests/actions/promises.h"
#include "tests/app/window/window_bench.h"

namespace quenlor::actions {

// A user, an instrument and a machine that do what they are told to the real window. After each action what
// the program promises is looked at; fuzz::BrokenPromise says which of it does not hold.
class Player {
 public:
  Player();

  void Do(const Action& action);
  const std::string& Told() const { return told_; }  // what exactly was done last, in words

  // Saves, reads back, and ends the program.
  void End();

 private:
  void Act(Kind kind);
  void LookAtPromises();
  void Script();  // what the boxes that may come are answered

  QWidget& AnyWindow();
  QPoint Within(const QWidget& widget);
  void StartOrStop();
  void Click();
  void DoubleClick();
  void Drag();
  void Wheel();
  void Key();
  void Type();
  void ChooseFromMenu();
  void OpenMenu();
  void SendLines();
  void Meanwhile();  // what the line and the clock do while a box waits
  void SetClock();
  void DisturbPort();
  void DisturbDisk();
  void HealDisk();
  void ChangeRawLog();
  void SaveAndReadBack();
  void Resize();
  void EndProgram();
  void Restart();

  app::WindowBench bench_;
  Chance chance_{0};
  std::string told_;
  int readings_ = 0;
  HeldReadings held_;
  bool disk_is_well_ = true;
  bool log_is_due_ = false;  // something that the disk refused may still be missing in the raw log
};

}  // namespace quenlor::actions
