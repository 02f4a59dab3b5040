// SPDX-License-Identifier: MIT
#include "app/main_menus.h"

#include "link/port_settings.h"

namespace quenlor::app {
namespace {

QMenu* AddMenu(QMenuBar* bar, const char* name, const QString& caption) {
  QMenu* menu = bar->addMenu(caption);
  menu->setObjectName(QString::fromLatin1(name));
  menu->setToolTipsVisible(true);
  return menu;
}

QMenu* AddMenu(QMenu* parent, const char* name, const QString& caption) {
  QMenu* menu = parent->addMenu(caption);
  menu->setObjectName(QString::fromLatin1(name));
  menu->setToolTipsVisible(true);
  return menu;
}

QAction* AddItem(QMenu* menu, const char* name, const QString& caption, const QString& tip) {
  QAction* item = menu->addAction(caption);
  item->setObjectName(QString::fromLatin1(name));
  item->setToolTip(tip);
  item->setStatusTip(tip);
  return item;
}

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

template <class Captions>
void AddItems(OptionGroup& group, const Captions& captions) {
  for (const std::string_view caption : captions) group.Add(Text(caption));
}

}  // namespace

MainMenus::MainMenus(QMenuBar* bar, MenuHandlers handlers)
    : mFile(AddMenu(bar, "mFile", QStringLiteral("File(&F)"))),
      mRS(AddMenu(bar, "mRS", QStringLiteral("RS-232C(&R)"))),
      Port(AddMenu(mRS, "RS0", QStringLiteral("Com Port(&C)")), QStringLiteral("Port"), 1,
           std::move(handlers.Port_Click)),
      BPS(AddMenu(mRS, "RS1", QStringLiteral("Baud Rate(&B)")), QStringLiteral("BPS"), 0,
          std::move(handlers.BPS_Click)),
      Parity(AddMenu(mRS, "RS2", QStringLiteral("Parity(&P)")), QStringLiteral("Parity"), 0,
             std::move(handlers.Parity_Click)),
      Length(AddMenu(mRS, "RS3", QStringLiteral("Length(&L)")), QStringLiteral("Length"), 0,
             std::move(handlers.Length_Click)),
      Bit(AddMenu(mRS, "RS4", QStringLiteral("Stop Bit(&S)")), QStringLiteral("Bit"), 0,
          std::move(handlers.Bit_Click)),
      Term(AddMenu(mRS, "RS5", QStringLiteral("Terminator(&T)")), QStringLiteral("Term"), 0,
           std::move(handlers.Term_Click)),
      mOption(AddMenu(bar, "mOption", QStringLiteral("Option(&O)"))),
      LW(AddMenu(mOption, "mLine", QStringLiteral("Line")), QStringLiteral("LW"), 1,
         std::move(handlers.LW_Click)),
      MK(AddMenu(mOption, "mMarker", QStringLiteral("Marker")), QStringLiteral("MK"), 0,
         std::move(handlers.MK_Click)),
      TimeS(AddMenu(mOption, "mTime", QStringLiteral("Time Scale")), QStringLiteral("TimeS"), 0,
            std::move(handlers.TimeS_Click)),
      mLog(AddMenu(mOption, "mAxis", QStringLiteral("Visco Axis")), QStringLiteral("mLog"), 0,
           std::move(handlers.mLog_Click)),
      mColor(AddItem(mOption, "mColor", QStringLiteral("Color"),
                     QObject::tr("Colours of the runs and the background"))),
      DP(AddMenu(mOption, "mPoint", QStringLiteral("Decimal Point")), QStringLiteral("DP"), 0,
         std::move(handlers.DP_Click)),
      VDT(AddMenu(mOption, "mV", QStringLiteral("Visco Data")), QStringLiteral("VDT"), 1,
          std::move(handlers.VDT_Click)),
      TDT(AddMenu(mOption, "mT", QStringLiteral("Temp Data")), QStringLiteral("TDT"), 1,
          std::move(handlers.TDT_Click)),
      mNum(AddItem(mOption, "mNum", QStringLiteral("Number"),
                   QObject::tr("Take only the numbers out of received lines"))),
      mVisco(AddItem(mOption, "mVisco", QStringLiteral("Visco"),
                     QObject::tr("Send the start word at Start, and STOP at Stop and at the end"))),
      mDefault(AddItem(mOption, "mDefault", QStringLiteral("Initialize"), QObject::tr("Does nothing"))),
      mScale(AddMenu(bar, "mScale", QStringLiteral("Scale(&S)"))),
      Range(mScale, QStringLiteral("Range"), 0, std::move(handlers.Range_Click)) {
  mNew = AddItem(mFile, "mNew", QStringLiteral("New(&N)"), QObject::tr("Begin an empty document"));
  mOpen = AddItem(mFile, "mOpen", QStringLiteral("Open(&O)"), QObject::tr("Open a data file or a raw log"));
  mSave =
      AddItem(mFile, "mSave", QStringLiteral("Save(&S)"), QObject::tr("Save the document as a data file"));
  mFile->addSeparator();
  mPrint = AddItem(mFile, "mPrint", QStringLiteral("Print(&P)"), QObject::tr("Print the report"));
  mStatistics =
      AddItem(mFile, "mStatistics", QStringLiteral("Statistics(&T)"), QObject::tr("Summarise the runs"));
  mFile->addSeparator();
  mEnd = AddItem(mFile, "mEnd", QStringLiteral("End(&X)"), QObject::tr("End the program"));
  mNew->setShortcut(QKeySequence::New);
  mOpen->setShortcut(QKeySequence::Open);
  mSave->setShortcut(QKeySequence::Save);
  mPrint->setShortcut(QKeySequence::Print);
  mEnd->setShortcut(QKeySequence::Quit);

  AddItems(BPS, link::BPS);
  AddItems(Parity, link::Parity);
  AddItems(Length, link::Length);
  AddItems(Bit, link::Bit);
  AddItems(Term, link::Term);
  AddItems(LW, std::array{"1", "2"});
  AddItems(MK, std::array{"0", "1", "2", "5", "10"});
  AddItems(TimeS, std::array{"Second", "Minute", "Hour"});
  AddItems(mLog, std::array{"Linear", "Log"});
  AddItems(DP, std::array{"Dot", "Comma"});
  AddItems(Range, std::array{"Time mini", "Time max", "Visco mini", "Visco max", "Temp mini", "Temp max"});
  for (int i = Range.First(); i <= Range.Last(); ++i) Range.Item(i)->setCheckable(false);
  mNum->setCheckable(true);
  mVisco->setCheckable(true);
}

}  // namespace quenlor::app
