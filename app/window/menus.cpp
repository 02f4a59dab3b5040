// SPDX-License-Identifier: MIT
#include "app/window/menus.h"

#include <algorithm>
#include <utility>

#include "link/port_settings.h"
#include "platform/qt/plain_tip.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using platform::qt::ToQString;

using platform::qt::DescribedMenu;

using Captions = std::vector<std::string_view>;

template <std::size_t N>
Captions Items(const std::array<std::string_view, N>& captions) {
  return {captions.begin(), captions.end()};
}

}  // namespace

// A menu of alike items: its own name and caption (none: its items stand in the menu around it), the array,
// its first index and items, the settings element that keeps the checked one, and what answers a click.
struct Menus::GroupRow {
  const char* menu;
  const char* caption;
  OptionGroup& group;
  const char* array;
  int first;
  Captions items;
  int element;
  void (Menus::*click)(int Index);
};

Menus::Menus(QMenuBar* bar, Session& session, link::Measurement& measurement, DeviceNames devices,
             Status& status)
    : QObject(bar),
      bar_(bar),
      session_(session),
      measurement_(measurement),
      devices_(std::move(devices)),
      status_(status) {
  BuildFileMenu();
  BuildPortMenu();
  BuildOptionMenu();
  BuildScaleMenu();
  measurement_.AddListener(*this);
}

Menus::~Menus() { measurement_.RemoveListener(*this); }

void Menus::BuildFileMenu() {
  mFile = AddMenu("mFile", "File(&F)");
  mNew = AddItem(mFile, "mNew", "New(&N)", tr("Begin an empty document"));
  mOpen = AddItem(mFile, "mOpen", "Open(&O)", tr("Open a data file or a raw log"));
  mSave = AddItem(mFile, "mSave", "Save(&S)", tr("Save the document as a data file"));
  mFile->addSeparator();
  mPrint = AddItem(mFile, "mPrint", "Print(&P)", tr("Print the report"));
  mStatistics = AddItem(mFile, "mStatistics", "Statistics(&T)", tr("Summarise the runs"));
  mFile->addSeparator();
  mEnd = AddItem(mFile, "mEnd", "End(&X)", tr("End the program"));
  connect(mFile, &QMenu::aboutToShow, this, &Menus::FileMenuOpens);
  mFile->addSeparator();
  mAppend = AddItem(mFile, "mAppend", "&Append...", tr("Add the runs of a data file or a raw log"));
  help_ = mFile->addSeparator();
  mHelp = AddItem(mFile, "mHelp", "Help", tr("The guide"));
  mAbout = AddItem(mFile, "mAbout", "About Quenlor", tr("Versions and licences"));
  mHelp->setShortcut(QKeySequence::HelpContents);
  mNew->setShortcut(QKeySequence::New);
  mOpen->setShortcut(QKeySequence::Open);
  mSave->setShortcut(QKeySequence::Save);
  mPrint->setShortcut(QKeySequence::Print);
  mStatistics->setShortcut(Qt::CTRL | Qt::Key_T);
  mEnd->setShortcut(QKeySequence::Quit);
}

void Menus::ShowRecent(const std::vector<std::string>& paths) {
  qDeleteAll(recent_);
  recent_.clear();
  for (const std::string& path : paths) {
    const QString shown = ToQString(path);
    const QString name = shown.section(QLatin1Char('/'), -1).replace(QLatin1Char('&'), QStringLiteral("&&"));
    auto* item = new QAction(QStringLiteral("&%1 %2").arg(recent_.size() + 1).arg(name), mFile);
    mFile->insertAction(help_, item);
    item->setObjectName(QStringLiteral("Recent[%1]").arg(recent_.size() + 1));
    item->setToolTip(platform::qt::PlainTip(shown));
    item->setStatusTip(shown);
    connect(item, &QAction::triggered, this, [this, path] { emit Recent_Click(path); });
    recent_.append(item);
  }
}

void Menus::BuildPortMenu() {
  mRS = AddMenu("mRS", "RS-232C(&R)");
  const GroupRow rows[] = {
      {"RS0", "Com Port(&C)", Port, "Port", 1, {}, setting::kPort, &Menus::Port_Click},
      {"RS1", "Baud Rate(&B)", BPS, "BPS", 0, Items(link::BPS), setting::kBPS, &Menus::BPS_Click},
      {"RS2", "Parity(&P)", Parity, "Parity", 0, Items(link::Parity), setting::kParity, &Menus::Parity_Click},
      {"RS3", "Length(&L)", Length, "Length", 0, Items(link::Length), setting::kLength, &Menus::Length_Click},
      {"RS4", "Stop Bit(&S)", Bit, "Bit", 0, Items(link::Bit), setting::kBit, &Menus::Bit_Click},
      {"RS5", "Terminator(&T)", Term, "Term", 0, Items(link::Term), setting::kTerm, &Menus::Term_Click},
  };
  for (const GroupRow& row : rows) AddGroup(mRS, row);
  // A device that was plugged in meanwhile is there.
  connect(mRS, &QMenu::aboutToShow, this, &Menus::ShowDevices);
  connect(Port.Menu(), &QMenu::aboutToShow, this, &Menus::ShowDevices);
}

void Menus::BuildOptionMenu() {
  QMenu* mOption = AddMenu("mOption", "Option(&O)");
  const auto none = OptionGroup::kNoElement;
  const GroupRow rows[] = {
      {"mLine", "Line", LW, "LW", 1, {"1", "2"}, setting::kLW, &Menus::LW_Click},
      {"mMarker", "Marker", MK, "MK", 0, {"0", "1", "2", "5", "10"}, setting::kMK, &Menus::MK_Click},
      {"mTime",
       "Time Scale",
       TimeS,
       "TimeS",
       0,
       {"Second", "Minute", "Hour"},
       setting::kTimeS,
       &Menus::TimeS_Click},
      {"mAxis", "Visco Axis", mLog, "mLog", 0, {"Linear", "Log"}, setting::kLog, &Menus::mLog_Click},
      {"mPoint", "Decimal Point", DP, "DP", 0, {"Dot", "Comma"}, setting::kDP, &Menus::DP_Click},
      {"mV", "Visco Data", VDT, "VDT", 1, {}, none, &Menus::VDT_Click},
      {"mT", "Temp Data", TDT, "TDT", 1, {}, none, &Menus::TDT_Click},
  };
  for (const GroupRow& row : rows) {
    if (&row.group == &DP)
      mColor = AddItem(mOption, "mColor", "Color", tr("Colours of the runs and the background"));
    AddGroup(mOption, row);
  }
  mNum = AddItem(mOption, "mNum", "Number", tr("Take only the numbers out of received lines"));
  mVisco = AddItem(mOption, "mVisco", "Visco",
                   tr("Send the start word at Start, and STOP at Stop and at the end"));
  QAction* mDefault = AddItem(mOption, "mDefault", "Initialize", tr("Does nothing"));
  mNum->setCheckable(true);
  mVisco->setCheckable(true);

  connect(VDT.Menu(), &QMenu::aboutToShow, this,
          [this] { FillColumnMenu(VDT, session_.Document().ViscoColumn()); });
  connect(TDT.Menu(), &QMenu::aboutToShow, this,
          [this] { FillColumnMenu(TDT, session_.Document().TempColumn()); });
  connect(mNum, &QAction::triggered, this, &Menus::mNum_Click);
  connect(mVisco, &QAction::triggered, this, &Menus::mVisco_Click);
  connect(mDefault, &QAction::triggered, this, &Menus::mDefault_Click);
}

void Menus::BuildScaleMenu() {
  AddGroup(AddMenu("mScale", "Scale(&S)"), {nullptr, nullptr, Range, "Range", 0, Items(graph::kLimitNames),
                                            OptionGroup::kNoElement, &Menus::Range_Click});
  for (int i = Range.First(); i <= Range.Last(); ++i) Range.Item(i)->setCheckable(false);
}

DescribedMenu* Menus::AddMenu(const char* name, const char* caption) {
  auto* menu = new DescribedMenu(QString::fromLatin1(caption), bar_);
  menu->setObjectName(QString::fromLatin1(name));
  bar_->addMenu(menu);
  return menu;
}

QAction* Menus::AddItem(QMenu* menu, const char* name, const char* caption, const QString& tip) {
  QAction* item = menu->addAction(QString::fromLatin1(caption));
  item->setObjectName(QString::fromLatin1(name));
  item->setToolTip(tip);
  item->setStatusTip(tip);
  return item;
}

void Menus::AddGroup(QMenu* menu, const GroupRow& row) {
  if (row.menu != nullptr) {
    auto* around = std::exchange(menu, new DescribedMenu(QString::fromLatin1(row.caption), menu));
    menu->setObjectName(QString::fromLatin1(row.menu));
    around->addMenu(menu);
  }
  row.group.Build(menu, QString::fromLatin1(row.array), row.first, row.element,
                  [this, click = row.click](int Index) { (this->*click)(Index); });
  for (const std::string_view item : row.items) row.group.Add(ToQString(item));
  if (row.element != OptionGroup::kNoElement) groups_.push_back(&row.group);
}

void Menus::AddPorts() {
  for (int port = 1; port <= link::PortCount(session_.List()); ++port) Port.Add(QString::number(port));
}

void Menus::ShowChoices() {
  const data::SettingsList& list = session_.List();
  for (OptionGroup* group : groups_) group->Check(list.Index(group->Element()));
  mNum->setChecked(list.IsOn(setting::kNum));
  mVisco->setChecked(list.IsOn(setting::kVisco));
}

void Menus::Choose(OptionGroup& group, int Index) {
  group.Check(Index);
  session_.List().Set(group.Element(), Index);
  session_.Settings().SaveSettings();
}

void Menus::LW_Click(int Index) {
  Choose(LW, Index);
  session_.Graph().LookChanged();
  emit LineChosen();
}

void Menus::MK_Click(int Index) {
  Choose(MK, Index);
  session_.Graph().LookChanged();
}

void Menus::TimeS_Click(int Index) {
  Choose(TimeS, Index);
  session_.Graph().TimeScaleChanged();
}

void Menus::mLog_Click(int Index) {
  Choose(mLog, Index);
  session_.Graph().ViscoAxisChanged();
}

void Menus::ToggleLog() { mLog_Click(session_.List().Index(setting::kLog) == 1 ? 0 : 1); }

void Menus::DP_Click(int Index) {
  Choose(DP, Index);
  session_.Document().SetFieldSeparator(session_.List().FieldSeparator());
}

void Menus::VDT_Click(int Index) {
  VDT.Check(Index);
  session_.Document().SetViscoColumn(Index + 1);
  session_.Settings().SaveSettings();
}

void Menus::TDT_Click(int Index) {
  TDT.Check(Index);
  session_.Document().SetTempColumn(Index + 1);
  session_.Settings().SaveSettings();
}

void Menus::mNum_Click() {
  session_.List().Set(setting::kNum, mNum->isChecked() ? "True" : "False");
  session_.Settings().SaveSettings();
}

void Menus::mVisco_Click() {
  session_.List().Set(setting::kVisco, mVisco->isChecked() ? "True" : "False");
  session_.Settings().SaveSettings();
}

void Menus::FillColumnMenu(OptionGroup& group, int chosen_column) {
  constexpr int kMostItems = 500;  // a menu of thousands cannot be used, and takes seconds to open
  group.Clear();
  const data::MeasurementTable& table = session_.Document().Grid1();
  const int last = std::min(table.Cols(), kMostItems + 2);
  for (int col = 2; col < last; ++col)
    group.Add(platform::qt::ToShortQString(table.TextMatrix(0, col))
                  .replace(QLatin1Char('&'), QStringLiteral("&&")));
  group.Check(chosen_column - 1);
}

void Menus::StateChanged() {
  mRS->setEnabled(!measurement_.Running());
  bar_->setEnabled(!measurement_.Stopping());
}

void Menus::ShowDevices() {
  if (const auto failed = devices_.look_for_devices()) status_.Say(failed->text);
  for (int port = Port.First(); port <= Port.Last(); ++port) {
    const std::string device = devices_.name_of_port(port);
    const QString tip = device.empty() ? tr("Port %1: there is no device").arg(port)
                                       : tr("Port %1: %2").arg(port).arg(ToQString(device));
    Port.Item(port)->setToolTip(tip);
    Port.Item(port)->setStatusTip(tip);
    static_cast<DescribedMenu*>(Port.Menu())
        ->SetBeside(Port.Item(port), ToQString(ShortDeviceName(device)), device.empty());
  }
  TellOfUnreachableDevice();
  status_.DevicesFound();
}

// A device whose number has no item could never be chosen, and nobody would know why.
void Menus::TellOfUnreachableDevice() {
  constexpr int kMostNumbers = 256;
  for (int port = Port.Last() + 1; port <= kMostNumbers; ++port) {
    const std::string device = devices_.name_of_port(port);
    if (device.empty()) continue;
    return status_.Say(tr("Port %1 (%2) lies beyond the Com Port menu; the first line of %3 is the number "
                          "of its items")
                           .arg(port)
                           .arg(ToQString(device), ToQString(session_.SettingsName()))
                           .toStdString());
  }
}

}  // namespace quenlor::app
