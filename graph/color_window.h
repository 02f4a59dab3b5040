// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <functional>

#include "graph/color_button.h"
#include "graph/color_settings.h"
#include "graph/palette_window.h"
#include "graph/sample_line.h"

namespace quenlor::graph {

// "Color": the ten colours of runs and the background, chosen by eye.
//
// Not modal, so that a running measurement can be stopped beside it, and no event loop of its own. Nothing is
// kept before "OK", which hands the settings over, closes the window and destroys it; "Cancel", Escape and
// the close box hand over nothing. The palette of a window closes with it.
class ColorWindow : public QDialog {
  Q_OBJECT

 public:
  using Take = std::function<void(const ColorSettings& settings)>;

  ColorWindow(const ColorSettings& current, int line_width, Take take, QWidget* parent);

  void SetColor(int index, Color color);
  void SetLineWidth(int line_width);  // of the graph, 1 or 2

  void done(int result) override;

 private:
  void BuildWindow();
  QWidget* BuildEntries();
  QWidget* BuildBackFrame();
  void ConnectHandlers();
  void SelectScheme(Scheme scheme);
  Scheme SelectedScheme() const { return Option1[0]->isChecked() ? Scheme::White : Scheme::Black; }

  void Command1_Click();  // "Reset"
  void Command2_Click();  // "OK"
  void Command4_Click(int index);
  void Option1_Click();

  Take take_;
  QPushButton* Command1;  // "Reset"
  QPushButton* Command2;  // "OK"
  QPushButton* Command3;  // "Cancel"
  std::array<ColorButton*, 10>
      Command4{};  // "No.10", "No.1" ... "No.9": the place is that of the colour table
  std::array<SampleLine*, 10> Line1{};
  std::array<QRadioButton*, 2> Option1{};  // " White", " Black"
  QPointer<PaletteWindow> Form7;
};

}  // namespace quenlor::graph
