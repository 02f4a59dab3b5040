// SPDX-License-Identifier: MIT
#include "platform/qt/qt_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QStandardPaths>
#include <algorithm>

#include "data/utf8.h"

namespace quenlor::platform::qt {
namespace {

// A box belongs to its parent and goes when that goes, even while it waits for the operator.
template <class Box>
class OnScreen {
 public:
  explicit OnScreen(Box* box) : box_(box) {}
  ~OnScreen() { delete box_.data(); }
  OnScreen(const OnScreen&) = delete;
  OnScreen& operator=(const OnScreen&) = delete;

  Box* operator->() const { return box_.data(); }
  bool Gone() const { return box_.isNull(); }

 private:
  QPointer<Box> box_;
};

void MakeModal(QDialog& dialog) {
  dialog.setWindowModality(dialog.parentWidget() ? Qt::WindowModal : Qt::ApplicationModal);
}

// Where a box hides nothing of the window if there is room, else as little as it can.
QPoint PlaceBeside(const QRect& window, QSize box, const QRect& screen) {
  const int right = window.x() + window.width();
  const int below = window.y() + window.height();
  const QPoint last =
      QPoint(screen.x() + screen.width(), screen.y() + screen.height()) - QPoint(box.width(), box.height());
  const QPoint middle = window.center() - QRect({}, box).center();
  if (right <= last.x()) return {right, std::clamp(middle.y(), screen.y(), std::max(screen.y(), last.y()))};
  if (below <= last.y()) return {std::clamp(middle.x(), screen.x(), std::max(screen.x(), last.x())), below};
  return last;
}

void PutBeside(QDialog& box, const QWidget& window) {
  const QSize frame = window.frameSize() - window.size();
  box.adjustSize();
  box.move(PlaceBeside(window.frameGeometry(), box.size() + frame, window.screen()->availableGeometry()));
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
  switch (answer) {
    case Answer::kOk:
      return QMessageBox::Ok;
    case Answer::kYes:
      return QMessageBox::Yes;
    case Answer::kNo:
      return QMessageBox::No;
    case Answer::kCancel:
      break;
  }
  return QMessageBox::Cancel;
}

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOk:
      return QMessageBox::Ok;
    case Buttons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::kYesNoCancel:
      break;
  }
  return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
}

QMessageBox::Icon IconOf(Icon icon) {
  switch (icon) {
    case Icon::kCritical:
      return QMessageBox::Critical;
    case Icon::kQuestion:
      return QMessageBox::Question;
    case Icon::kExclamation:
      break;
  }
  return QMessageBox::Warning;
}

QString Lines(const std::string& text) {
  return QString::fromStdString(text)
      .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
      .replace(u'\r', u'\n');
}

// "caption|pattern|caption|pattern" as Qt writes it: caption(patterns). The box hides that last
// pair of brackets.
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(u'|');
  QStringList filters;
  for (qsizetype caption = 0; caption + 1 < parts.size(); caption += 2) {
    QStringList patterns = parts[caption + 1].split(u';', Qt::SkipEmptyParts);
    // Names without a dot are files too.
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    filters << parts[caption] + u'(' + patterns.join(u' ') + u')';
  }
  return filters;
}

// ".csv" of a filter that ends with "(*.csv)", nothing of one with several patterns or none in particular.
QString SuffixOf(const QString& name_filter) {
  const QString pattern = name_filter.mid(name_filter.lastIndexOf(u'(') + 1).chopped(1);
  if (!pattern.startsWith(u'*')) return {};
  const QString suffix = pattern.mid(1);
  const bool plain = !suffix.contains(u'*') && !suffix.contains(u'?') && !suffix.contains(u' ');
  return plain && suffix.contains(u'.') ? suffix : QString();
}

// A dot in a name ("batch 1.5") begins no suffix. Of a suffix like "@2x.png" the name may have the last part
// already.
QString WithSuffix(const QString& name, const QString& suffix) {
  if (name.endsWith(suffix, Qt::CaseInsensitive)) return name;
  const QString ending = suffix.mid(suffix.lastIndexOf(u'.'));
  const qsizetype cut = name.endsWith(ending, Qt::CaseInsensitive) ? ending.size() : 0;
  return name.chopped(cut) + suffix;
}

// A name gets the suffix of the filter before the box asks about an existing file.
class SaveDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

  void accept() override {
    auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QString suffix = SuffixOf(selectedNameFilter());
    if (edit != nullptr && !suffix.isEmpty()) {
      const QString name = edit->text();
      const bool is_folder = name.isEmpty() || QFileInfo(directory().absoluteFilePath(name)).isDir();
      if (!is_folder) edit->setText(WithSuffix(name, suffix));
    }
    QFileDialog::accept();
  }
};

// The system's own box has asked about a name without the suffix.
QString Chosen(const QFileDialog& dialog) {
  QString path = dialog.selectedFiles().value(0);
  if (dialog.acceptMode() == QFileDialog::AcceptOpen || path.isEmpty()) return path;
  QString whole = WithSuffix(path, SuffixOf(dialog.selectedNameFilter()));
  if (whole == path || !QFileInfo::exists(whole)) return whole;
  const QString question = QFileDialog::tr("%1 already exists.\nDo you want to replace it?");
  const auto answer = QMessageBox::warning(dialog.parentWidget(), dialog.windowTitle(),
                                           question.arg(QFileInfo(whole).fileName()),
                                           QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
  return answer == QMessageBox::Yes ? whole : QString();
}

// Windows has boxes for files that its users know.
constexpr QFileDialog::Options kWhoseBox =
#ifdef Q_OS_WIN
    QFileDialog::Options();
#else
    QFileDialog::DontUseNativeDialog;
#endif

}  // namespace

QtDialogs::QtDialogs(std::function<QWidget*()> parent)
    : parent_(std::move(parent)),
      folder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {}

Answer QtDialogs::Show(const MessageBox& box) {
  const OnScreen message(new QMessageBox(parent_()));
  message->setObjectName(QStringLiteral("MessageBox"));
  MakeModal(*message.operator->());
  message->setWindowTitle(QString::fromStdString(box.title));
  message->setIcon(IconOf(box.icon));
  message->setTextFormat(Qt::PlainText);
  message->setText(Lines(box.text));
  message->setStandardButtons(ButtonsOf(box.buttons));
  message->setDefaultButton(ButtonOf(box.default_answer));
  message->setEscapeButton(ButtonOf(CautiousAnswer(box.buttons)));

  if (box.blocks == Blocks::kWholeProgram) {
    message->setWindowModality(Qt::ApplicationModal);
    if (message->parentWidget() != nullptr)
      PutBeside(*message.operator->(), *message->parentWidget()->window());
  }

  const int button = message->exec();
  for (const Answer answer : {Answer::kOk, Answer::kCancel, Answer::kYes, Answer::kNo}) {
    if (button == ButtonOf(answer)) return answer;
  }
  return CautiousAnswer(box.buttons);  // the application quits
}

QString QtDialogs::FolderToShow(const std::string& folder) const {
  const bool can_be_shown = !folder.empty() && data::IsUtf8(folder);
  return can_be_shown ? QDir(QString::fromStdString(folder)).absolutePath() : folder_;
}

std::optional<std::string> QtDialogs::OpenFile(const std::string& folder, const std::string& filter) {
  auto* dialog = new QFileDialog(parent_());
  Prepare(*dialog, FolderToShow(folder), filter);
  dialog->setFileMode(QFileDialog::ExistingFile);
  return Run(dialog);
}

std::optional<std::string> QtDialogs::SaveFile(const std::string& folder, const std::string& name,
                                               const std::string& filter) {
  auto* dialog = new SaveDialog(parent_());
  Prepare(*dialog, FolderToShow(folder), filter);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  if (!dialog->testOption(QFileDialog::DontUseNativeDialog))
    dialog->setDefaultSuffix(SuffixOf(dialog->nameFilters().value(0)).mid(1));
  // A name that is no UTF-8 cannot be typed here; the one that is proposed instead is there to be seen.
  dialog->selectFile(QString::fromStdString(data::ToUtf8(name)));
  if (auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
    edit->setFocus();
    edit->selectAll();  // typing replaces the proposal
  }
  return Run(dialog);
}

void QtDialogs::Prepare(QFileDialog& dialog, const QString& folder, const std::string& filter) const {
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  dialog.setOptions(kWhoseBox | QFileDialog::HideNameFilterDetails);
  MakeModal(dialog);
  dialog.setNameFilters(NameFilters(filter));
  dialog.setDirectory(folder);
}

std::optional<std::string> QtDialogs::Run(QFileDialog* dialog) {
  const OnScreen files(dialog);
  const bool accepted = files->exec() == QDialog::Accepted;
  if (!accepted || files.Gone()) return std::nullopt;
  const QString path = Chosen(*files.operator->());
  if (path.isEmpty()) return std::nullopt;
  folder_ = QFileInfo(path).absolutePath();
  return path.toStdString();
}

}  // namespace quenlor::platform::qt
