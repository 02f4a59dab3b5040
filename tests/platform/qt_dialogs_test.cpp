// SPDX-License-Identifier: MIT
#include "platform/qt/qt_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

namespace quenlor::platform {
namespace {

using testing::UnorderedElementsAre;

constexpr char kCsvOrAll[] = "CSV File(*.csv)|*.csv|ALL Files(*.*)|*.*";

// Runs `act` with the box once it waits for the operator.
template <class Box>
void WhenOpen(std::function<void(Box&)> act) {
  auto* poll = new QTimer(qApp);
  QObject::connect(poll, &QTimer::timeout, poll, [poll, act, polls = 0]() mutable {
    auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
    if (box && box->isVisible()) {
      poll->deleteLater();
      poll->stop();
      const QPointer<Box> alive(box);
      act(*box);
      if (alive && testing::Test::HasFatalFailure()) alive->reject();  // rather than wait for ever
    } else if (++polls > 2000) {
      ADD_FAILURE() << "no box opened";
      poll->deleteLater();
      poll->stop();
    }
  });
  poll->start(2);
}

// A user who has nothing but an empty folder for documents.
class Home {
 public:
  Home() {
    qputenv("HOME", folder_.path().toUtf8());
    QDir().mkpath(Documents());
  }
  ~Home() { qputenv("HOME", home_before_); }
  Home(const Home&) = delete;
  Home& operator=(const Home&) = delete;

  QString Documents() const { return folder_.filePath(QStringLiteral("Documents")); }

 private:
  const QByteArray home_before_ = qgetenv("HOME");
  QTemporaryDir folder_;
};

class QtDialogsTest : public testing::Test {
 protected:
  QtDialogsTest() {
    window_.resize(300, 200);
    window_.show();
  }
  void SetUp() override {
    ASSERT_TRUE(folder_.exists());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  void Make(const QString& name) {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
  }
  std::string Path(const char* name) { return folder_.filePath(QString::fromUtf8(name)).toStdString(); }

  // Shows the box and presses that button.
  Answer Press(const MessageBox& box, QMessageBox::StandardButton button) {
    WhenOpen<QMessageBox>([button](QMessageBox& shown) {
      ASSERT_TRUE(shown.button(button));
      QTest::mouseClick(shown.button(button), Qt::LeftButton);
    });
    return dialogs_.Show(box);
  }
  Answer PressKey(const MessageBox& box, Qt::Key key) {
    WhenOpen<QMessageBox>([key](QMessageBox& shown) { QTest::keyClick(&shown, key); });
    return dialogs_.Show(box);
  }
  Answer CloseWindow(const MessageBox& box) {
    WhenOpen<QMessageBox>([](QMessageBox& shown) { EXPECT_TRUE(shown.close()); });
    return dialogs_.Show(box);
  }

  static QLineEdit& NameEdit(QFileDialog& dialog) { return *dialog.findChild<QLineEdit*>(); }
  static QComboBox& FilterCombo(QFileDialog& dialog) {
    return *dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
  }
  static void ChooseFilter(QFileDialog& dialog, int index) {
    QComboBox& combo = FilterCombo(dialog);
    QTest::keyClick(&combo, index == 0 ? Qt::Key_Home : Qt::Key_End);
    ASSERT_EQ(combo.currentIndex(), index);
  }
  static void Accept(QFileDialog& dialog) { QTest::keyClick(&NameEdit(dialog), Qt::Key_Return); }
  static std::vector<std::string> Listed(QFileDialog& dialog) {
    auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    std::vector<std::string> names;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
      names.push_back(list->model()->index(row, 0, list->rootIndex()).data().toString().toStdString());
    }
    return names;
  }

  QWidget window_;
  Home home_;
  QDir folder_{home_.Documents()};
  qt::QtDialogs dialogs_{[this] { return &window_; }};
};

TEST_F(QtDialogsTest, EveryButtonGivesItsAnswer) {
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kOk}, QMessageBox::Ok), Answer::kOk);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kOkCancel}, QMessageBox::Ok), Answer::kOk);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kOkCancel}, QMessageBox::Cancel), Answer::kCancel);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kYesNo}, QMessageBox::Yes), Answer::kYes);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kYesNo}, QMessageBox::No), Answer::kNo);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kYesNoCancel}, QMessageBox::Yes), Answer::kYes);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kYesNoCancel}, QMessageBox::No), Answer::kNo);
  EXPECT_EQ(Press({.text = "?", .buttons = Buttons::kYesNoCancel}, QMessageBox::Cancel), Answer::kCancel);
}

TEST_F(QtDialogsTest, ReturnGivesTheDefaultAnswer) {
  const auto with_default = [](Buttons buttons, Answer answer) {
    return MessageBox{.text = "?", .buttons = buttons, .default_answer = answer};
  };
  EXPECT_EQ(PressKey(with_default(Buttons::kYesNo, Answer::kYes), Qt::Key_Return), Answer::kYes);
  EXPECT_EQ(PressKey(with_default(Buttons::kYesNo, Answer::kNo), Qt::Key_Return), Answer::kNo);
  EXPECT_EQ(PressKey(with_default(Buttons::kOkCancel, Answer::kCancel), Qt::Key_Return), Answer::kCancel);
}

TEST_F(QtDialogsTest, EscAndTheTitleBarGiveTheCautiousAnswer) {
  for (const Buttons buttons : {Buttons::kOk, Buttons::kOkCancel, Buttons::kYesNo, Buttons::kYesNoCancel}) {
    const MessageBox box{.text = "?", .buttons = buttons, .default_answer = Answer::kYes};
    EXPECT_EQ(PressKey(box, Qt::Key_Escape), CautiousAnswer(buttons));
    EXPECT_EQ(CloseWindow(box), CautiousAnswer(buttons));
  }
}

TEST(Dialogs, TheCautiousAnswerChangesNothing) {
  EXPECT_EQ(CautiousAnswer(Buttons::kOk), Answer::kOk);
  EXPECT_EQ(CautiousAnswer(Buttons::kOkCancel), Answer::kCancel);
  EXPECT_EQ(CautiousAnswer(Buttons::kYesNo), Answer::kNo);
  EXPECT_EQ(CautiousAnswer(Buttons::kYesNoCancel), Answer::kCancel);
}

TEST_F(QtDialogsTest, ABoxShowsItsTextTitleAndIcon) {
  WhenOpen<QMessageBox>([this](QMessageBox& shown) {
    EXPECT_EQ(shown.objectName(), QStringLiteral("MessageBox"));
    EXPECT_EQ(shown.text(), QStringLiteral("first\nsecond\nthird"));
    EXPECT_EQ(shown.windowTitle(), QStringLiteral("Data file"));
    EXPECT_EQ(shown.icon(), QMessageBox::Critical);
    EXPECT_EQ(shown.windowModality(), Qt::WindowModal);
    EXPECT_EQ(shown.parentWidget(), &window_);
    EXPECT_EQ(shown.buttons().size(), 1);
    shown.accept();
  });
  dialogs_.Show({.text = "first\rsecond\r\nthird", .icon = Icon::kCritical, .title = "Data file"});
}

TEST_F(QtDialogsTest, ATextIsNeverReadAsMarkup) {
  WhenOpen<QMessageBox>([](QMessageBox& shown) {
    auto* label = shown.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    EXPECT_TRUE(label);
    if (label) {
      EXPECT_EQ(label->textFormat(), Qt::PlainText);
      EXPECT_EQ(label->text(), QStringLiteral("<b>bold</b> & µ"));
    }
    shown.accept();
  });
  dialogs_.Show({.text = "<b>bold</b> & µ"});
}

TEST_F(QtDialogsTest, EveryIconHasItsPicture) {
  const auto picture = [this](Icon icon) {
    QMessageBox::Icon seen = QMessageBox::NoIcon;
    WhenOpen<QMessageBox>([&seen](QMessageBox& shown) {
      seen = shown.icon();
      shown.accept();
    });
    dialogs_.Show({.text = "!", .icon = icon});
    return seen;
  };
  EXPECT_EQ(picture(Icon::kCritical), QMessageBox::Critical);
  EXPECT_EQ(picture(Icon::kQuestion), QMessageBox::Question);
  EXPECT_EQ(picture(Icon::kExclamation), QMessageBox::Warning);
}

TEST_F(QtDialogsTest, WithoutAParentABoxIsModalToTheApplication) {
  qt::QtDialogs orphan([] { return nullptr; });
  WhenOpen<QMessageBox>([](QMessageBox& shown) {
    EXPECT_EQ(shown.windowModality(), Qt::ApplicationModal);
    shown.accept();
  });
  EXPECT_EQ(orphan.Show({.text = "!"}), Answer::kOk);
}

TEST_F(QtDialogsTest, ABoxThatBlocksTheProgramStandsBesideItsWindowWhereThereIsRoom) {
  const QRect screen = window_.screen()->availableGeometry();
  const auto place = [&](const QRect& window) {
    window_.setGeometry(window);
    QRect box;
    WhenOpen<QMessageBox>([&box](QMessageBox& shown) {
      EXPECT_EQ(shown.windowModality(), Qt::ApplicationModal);
      box = shown.frameGeometry();
      shown.accept();
    });
    dialogs_.Show({.text = "?", .blocks = Blocks::kWholeProgram});
    EXPECT_TRUE(screen.contains(box));
    return box;
  };
  const QRect right = place({50, 50, 800, 600});
  EXPECT_EQ(right.left(), window_.frameGeometry().right() + 1);
  const QRect below = place({50, 50, screen.width() - 80, 600});
  EXPECT_EQ(below.top(), window_.frameGeometry().bottom() + 1);
  const QRect over = place({50, 50, screen.width() - 80, screen.height() - 80});
  EXPECT_EQ(over.bottomRight(), screen.bottomRight());
}

TEST_F(QtDialogsTest, ABoxWhoseParentGoesGivesTheCautiousAnswer) {
  auto* parent = new QWidget;
  parent->show();
  qt::QtDialogs dialogs([parent] { return parent; });
  WhenOpen<QMessageBox>([parent](QMessageBox&) { delete parent; });
  EXPECT_EQ(dialogs.Show({.text = "?", .buttons = Buttons::kYesNo}), Answer::kNo);

  auto* other = new QWidget;
  other->show();
  qt::QtDialogs files([other] { return other; });
  WhenOpen<QFileDialog>([other](QFileDialog&) { delete other; });
  EXPECT_EQ(files.OpenFile("", kCsvOrAll), std::nullopt);
}

TEST_F(QtDialogsTest, FilterCaptionsAreShownAsGiven) {
  WhenOpen<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), QStringLiteral("CommonDialog1"));
    EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
    EXPECT_EQ(dialog.parentWidget(), &window_);
    const QComboBox& combo = FilterCombo(dialog);
    ASSERT_EQ(combo.count(), 2);
    EXPECT_EQ(combo.itemText(0), QStringLiteral("CSV File(*.csv)"));
    EXPECT_EQ(combo.itemText(1), QStringLiteral("ALL Files(*.*)"));
    dialog.reject();
  });
  EXPECT_EQ(dialogs_.OpenFile("", kCsvOrAll), std::nullopt);
}

TEST_F(QtDialogsTest, FiltersListTheFilesTheyMean) {
  for (const char* name : {"small.csv", "BIG.CSV", "notes.txt", "nodot"}) Make(QString::fromUtf8(name));
  std::vector<std::string> csv;
  std::vector<std::string> all;
  WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog).size() == 2; }, 5000));
    csv = Listed(dialog);
    ChooseFilter(dialog, 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog).size() == 4; }, 5000));
    all = Listed(dialog);
    dialog.reject();
  });
  dialogs_.OpenFile("", kCsvOrAll);
  EXPECT_THAT(csv, UnorderedElementsAre("small.csv", "BIG.CSV"));
  EXPECT_THAT(all, UnorderedElementsAre("small.csv", "BIG.CSV", "notes.txt", "nodot"));
}

TEST_F(QtDialogsTest, OpeningGivesThePathInUtf8) {
  Make(QStringLiteral("viscosité µ.csv"));
  WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    NameEdit(dialog).insert(QStringLiteral("viscosité µ.csv"));
    Accept(dialog);
  });
  EXPECT_EQ(dialogs_.OpenFile("", kCsvOrAll), Path("viscosité µ.csv"));
}

TEST_F(QtDialogsTest, SavingProposesTheNameReadyToBeTypedOver) {
  WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(NameEdit(dialog).text(), QStringLiteral("run 1.csv"));
    EXPECT_EQ(NameEdit(dialog).selectedText(), QStringLiteral("run 1.csv"));
    EXPECT_TRUE(QTest::qWaitFor([&dialog] { return NameEdit(dialog).hasFocus(); }, 5000));
    Accept(dialog);
  });
  EXPECT_EQ(dialogs_.SaveFile("", "run 1.csv", kCsvOrAll), Path("run 1.csv"));
}

std::function<void(QFileDialog&)> Type(const QString& name,
                                       const std::function<void(QFileDialog&)>& first = {}) {
  return [name, first](QFileDialog& dialog) {
    if (first) first(dialog);
    auto* edit = dialog.findChild<QLineEdit*>();
    dialog.activateWindow();
    edit->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([edit] { return edit->hasFocus(); }, 5000));
    edit->selectAll();
    QTest::keyClicks(edit, name);
    QTest::keyClick(edit, Qt::Key_Return);
  };
}

TEST_F(QtDialogsTest, ANameThatEndsOtherwiseGetsTheSuffixOfTheFilter) {
  WhenOpen<QFileDialog>(Type(QStringLiteral("monday")));
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("monday.csv"));
  WhenOpen<QFileDialog>(Type(QStringLiteral("batch 1.5")));
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("batch 1.5.csv"));
  WhenOpen<QFileDialog>(Type(QStringLiteral("monday.CSV")));
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("monday.CSV"));
}

TEST_F(QtDialogsTest, ASuffixMayBeMoreThanWhatFollowsTheDot) {
  const std::string filter = "Fine(*@2x.png)|*@2x.png";
  WhenOpen<QFileDialog>(Type(QStringLiteral("monday")));
  EXPECT_EQ(dialogs_.SaveFile("", "x", filter), Path("monday@2x.png"));
  WhenOpen<QFileDialog>(Type(QStringLiteral("monday.png")));
  EXPECT_EQ(dialogs_.SaveFile("", "x", filter), Path("monday@2x.png"));
  WhenOpen<QFileDialog>(Type(QStringLiteral("monday@2x.png")));
  EXPECT_EQ(dialogs_.SaveFile("", "x", filter), Path("monday@2x.png"));
}

TEST_F(QtDialogsTest, WithTheFilterOfAllFilesANameStaysAsTyped) {
  WhenOpen<QFileDialog>(Type(QStringLiteral("monday"), [](QFileDialog& dialog) { ChooseFilter(dialog, 1); }));
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("monday"));

  WhenOpen<QFileDialog>(Type(QStringLiteral("tuesday"), [](QFileDialog& dialog) {
    ChooseFilter(dialog, 1);
    ChooseFilter(dialog, 0);
  }));
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("tuesday.csv"));
}

TEST_F(QtDialogsTest, TheOverwriteQuestionIsAboutTheFinalName) {
  Make(QStringLiteral("monday.csv"));
  QString question;
  WhenOpen<QFileDialog>([&question](QFileDialog& dialog) {
    WhenOpen<QMessageBox>([&](QMessageBox& box) {
      question = box.text();
      QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    Type(QStringLiteral("monday"))(dialog);
  });
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("monday.csv"));
  EXPECT_TRUE(question.contains(QStringLiteral("monday.csv"))) << question.toStdString();
}

TEST_F(QtDialogsTest, RefusingToOverwriteLeavesTheBoxOpen) {
  Make(QStringLiteral("monday.csv"));
  bool still_open = false;
  WhenOpen<QFileDialog>([&still_open](QFileDialog& dialog) {
    WhenOpen<QMessageBox>(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); });
    Type(QStringLiteral("monday.csv"))(dialog);
    still_open = dialog.isVisible();
    Type(QStringLiteral("tuesday.csv"))(dialog);
  });
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), Path("tuesday.csv"));
  EXPECT_TRUE(still_open);
}

TEST_F(QtDialogsTest, TheFirstBoxOpensInTheUsersDocuments) {
  QString opened;
  WhenOpen<QFileDialog>([&opened](QFileDialog& dialog) {
    opened = dialog.directory().absolutePath();
    dialog.reject();
  });
  dialogs_.OpenFile("", kCsvOrAll);
  EXPECT_EQ(opened, home_.Documents());
}

TEST_F(QtDialogsTest, TheNextBoxOpensInTheFolderOfTheFileChosenLast) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("week 7")));
  const QString chosen = folder_.filePath(QStringLiteral("week 7/a.csv"));
  WhenOpen<QFileDialog>(Type(chosen));
  ASSERT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), chosen.toStdString());

  QString opened;
  WhenOpen<QFileDialog>([&opened](QFileDialog& dialog) {
    opened = dialog.directory().absolutePath();
    dialog.reject();
  });
  dialogs_.OpenFile("", kCsvOrAll);
  EXPECT_EQ(opened, folder_.filePath(QStringLiteral("week 7")));
}

TEST_F(QtDialogsTest, ASaveBoxOpensInTheFolderThatIsAskedFor) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("week 8")));
  QString opened;
  WhenOpen<QFileDialog>([&opened](QFileDialog& dialog) {
    opened = dialog.directory().absolutePath();
    dialog.reject();
  });
  dialogs_.SaveFile(Path("week 8"), "x.csv", kCsvOrAll);
  EXPECT_EQ(opened, folder_.filePath(QStringLiteral("week 8")));
}

TEST_F(QtDialogsTest, ANameThatIsNoUtf8IsProposedAsALatin1OneInAFolderThatCanBeShown) {
  QString opened;
  QString proposed;
  WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    opened = dialog.directory().absolutePath();
    proposed = NameEdit(dialog).text();
    dialog.reject();
  });
  dialogs_.SaveFile("/tmp/\xF6", "\xF6l.csv", kCsvOrAll);
  EXPECT_EQ(proposed, QStringLiteral("öl.csv"));
  EXPECT_EQ(opened, folder_.path());
}

TEST_F(QtDialogsTest, AFileThatCannotBeNamedHereIsNotListedUnderAnotherName) {
  Make(QStringLiteral("a.csv"));
  const std::string path = Path("") + "/\xF6l.csv";
  std::ofstream(path) << "old";
  std::vector<std::string> listed;
  WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Listed(dialog).empty(); }, 5000));
    listed = Listed(dialog);
    dialog.reject();
  });
  dialogs_.OpenFile("", kCsvOrAll);
  std::filesystem::remove(path);
  EXPECT_THAT(listed, UnorderedElementsAre("a.csv"));
}

TEST_F(QtDialogsTest, CancellingForgetsNothing) {
  QString opened;
  WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    dialog.setDirectory(QDir::rootPath());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(dialogs_.SaveFile("", "x.csv", kCsvOrAll), std::nullopt);
  WhenOpen<QFileDialog>([&opened](QFileDialog& dialog) {
    opened = dialog.directory().absolutePath();
    dialog.reject();
  });
  dialogs_.OpenFile("", kCsvOrAll);
  EXPECT_EQ(opened, folder_.path());
}

}  // namespace
}  // namespace quenlor::platform
