// SPDX-License-Identifier: MIT
#include "platform/memory/scripted_dialogs.h"

#include <gmock/gmock.h>

namespace quenlor::platform {
namespace {

using testing::ElementsAre;

constexpr char kCsvOrAll[] = "CSV File(*.csv)|*.csv|ALL Files(*.*)|*.*";

TEST(ScriptedDialogs, AnswersInTheOrderTold) {
  memory::ScriptedDialogs dialogs;
  dialogs.Answer(Answer::kYes);
  dialogs.Answer(Answer::kCancel);
  dialogs.Path("/data/µ.csv");
  dialogs.Cancel();
  EXPECT_FALSE(dialogs.AsScripted()) << "nothing was asked yet";

  EXPECT_EQ(dialogs.Show({.text = "one", .buttons = Buttons::kYesNo}), Answer::kYes);
  EXPECT_EQ(dialogs.Show({.text = "two", .buttons = Buttons::kOkCancel}), Answer::kCancel);
  EXPECT_EQ(dialogs.SaveFile("", "name.csv", kCsvOrAll), "/data/µ.csv");
  EXPECT_EQ(dialogs.OpenFile("", "all|*.*"), std::nullopt);

  EXPECT_THAT(dialogs.Texts(), ElementsAre("one", "two"));
  EXPECT_THAT(dialogs.Names(), ElementsAre("name.csv"));
  EXPECT_THAT(dialogs.Filters(), ElementsAre(kCsvOrAll, "all|*.*"));
  EXPECT_TRUE(dialogs.AsScripted());
}

TEST(ScriptedDialogs, ABoxNobodyExpectedGetsTheCautiousAnswerAndIsKept) {
  memory::ScriptedDialogs dialogs;
  EXPECT_EQ(dialogs.Show({.text = "overwrite?", .buttons = Buttons::kYesNo}), Answer::kNo);
  EXPECT_EQ(dialogs.SaveFile("", "a.csv", kCsvOrAll), std::nullopt);
  EXPECT_THAT(dialogs.Unexpected(), ElementsAre("overwrite?", "save as a.csv"));
  EXPECT_FALSE(dialogs.AsScripted());
}

TEST(ScriptedDialogs, AnAnswerWithoutAButtonIsUnexpected) {
  memory::ScriptedDialogs dialogs;
  dialogs.Answer(Answer::kYes);
  EXPECT_EQ(dialogs.Show({.text = "stop?", .buttons = Buttons::kOkCancel}), Answer::kCancel);
  EXPECT_THAT(dialogs.Unexpected(), ElementsAre("no such button: stop?"));
}

TEST(ScriptedDialogs, ThingsHappenWhileABoxIsOpen) {
  memory::ScriptedDialogs dialogs;
  std::vector<std::string> log;
  dialogs.Answer(Answer::kOk, [&log] { log.push_back("line"); });
  dialogs.Path("a", [&] { log.push_back(dialogs.Filters().back()); });
  dialogs.Show({.text = "!"});
  dialogs.OpenFile("", "f|*");
  EXPECT_THAT(log, ElementsAre("line", "f|*"));
}

}  // namespace
}  // namespace quenlor::platform
