#include <QImage>
#include <QLocale>
#include <QPrinter>
#include <QRegularExpression>

#include "editing/WorkoutSheet.h"
#include "ui/PrintedSheet.h"
#include "ui/SheetPages.h"

#include "support/FormFixture.h"
#include "support/RunProgram.h"

namespace repvolta {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// The text of a PDF as another program reads it: a blank for each gap, a form feed after each
/// page.
std::string TextOfPdf(const std::string& path) {
  const ProgramRun run = RunProgram("pdftotext", {"-layout", path, "-"});
  EXPECT_EQ(run.errors, "");
  QString text = QString::fromStdString(run.output);
  return text.replace(QRegularExpression("[ \n]+"), " ").toStdString();
}

int PagesOf(const std::string& text) { return static_cast<int>(std::ranges::count(text, '\f')); }

SheetSet Set(int number, const std::string& first, const std::string& second) {
  return {.number = std::to_string(number), .first = first, .second = second, .growth = {}};
}

/// An exercise with that many sets, each with numbers of its own.
SheetExercise Exercise(const std::string& name, int sets) {
  SheetExercise exercise = {.name = name,
                            .music = "05:20 exercise",
                            .firstName = "Weight (kg)",
                            .secondName = "Reps",
                            .sets = {}};
  for (int i = 1; i <= sets; ++i) {
    exercise.sets.push_back(Set(i, std::to_string(100 * i) + ".5", std::to_string(7000 + i)));
  }
  return exercise;
}

class PrintedSheet : public testing::Test {
 protected:
  std::string Pdf(const WorkoutSheet& sheet, QPageSize::PageSizeId paper = QPageSize::A4) {
    PutFile("sheet.pdf", SheetAsPdf(sheet, QPageSize(paper)));
    return TextOfPdf("sheet.pdf");
  }

  TemporaryFolder folder_;
  WorkoutSheet monday_ = {.name = "Monday", .date = "Sat 21 Nov 2026", .exercises = {}};
};

TEST_F(PrintedSheet, HasEveryTextAndNumber) {
  monday_.exercises = {Exercise("1. Bench Press", 2)};
  monday_.exercises[0].sets[1].growth = {"Weight: Mon 7 Dec 2026 to 52.5"};
  const std::string text = Pdf(monday_);
  for (const char* part :
       {"Monday", "Sat 21 Nov 2026", "Page 1 of 1", "1. Bench Press", "05:20 exercise",
        "Weight (kg)", "Reps", "Done", "Grows next", "Notes", "100.5", "200.5", "7001", "7002"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
  EXPECT_THAT(text, AllOf(HasSubstr("Weight: Mon 7 Dec 2026"), HasSubstr("to 52.5")));
}

TEST_F(PrintedSheet, HasAllSlotsOfAWorkoutAndPartsNoExercise) {
  for (int i = 1; i <= 52; ++i) {
    monday_.exercises.push_back(Exercise("Exercise no" + std::to_string(i) + ".", 17));
  }
  const QStringList pages = QString::fromStdString(Pdf(monday_)).split('\f');
  ASSERT_EQ(pages.size(), 53);
  for (int i = 1; i <= 52; ++i) {
    const std::string page = pages[i - 1].toStdString();
    EXPECT_THAT(page, HasSubstr("Exercise no" + std::to_string(i) + "."));
    EXPECT_THAT(page, HasSubstr("Page " + std::to_string(i) + " of 52"));
    EXPECT_THAT(page, AllOf(HasSubstr(" 7001 "), HasSubstr(" 7017 ")));
  }
}

TEST_F(PrintedSheet, BeginsAPageBeforeAnExerciseThatWouldBeParted) {
  monday_.exercises = {Exercise("First", 10), Exercise("Second", 12)};
  const QStringList pages = QString::fromStdString(Pdf(monday_)).split('\f');
  ASSERT_EQ(pages.size(), 3);
  EXPECT_FALSE(pages[0].contains("Second"));
  EXPECT_TRUE(pages[1].contains("Second"));
}

TEST_F(PrintedSheet, PartsAnExerciseThatIsLongerThanAPage) {
  monday_.exercises = {Exercise("Long", 40)};
  const std::string text = Pdf(monday_);
  EXPECT_EQ(PagesOf(text), 3);
  EXPECT_THAT(text, HasSubstr("Long (continued)"));
  for (int set = 1; set <= 40; ++set) EXPECT_THAT(text, HasSubstr(std::to_string(7000 + set)));
}

TEST_F(PrintedSheet, FitsTheSmallerHeightOfLetter) {
  monday_.exercises = {Exercise("First", 17), Exercise("Second", 17)};
  EXPECT_EQ(PagesOf(Pdf(monday_, QPageSize::Letter)), 2);
}

TEST_F(PrintedSheet, BreaksNamesThatAreLongerThanALine) {
  const std::string word(200, 'M');
  monday_.exercises = {Exercise(word, 1)};
  std::string text = Pdf(monday_);
  EXPECT_EQ(std::ranges::count(text, 'M'), 201);  // one in the workout's name
}

TEST_F(PrintedSheet, ShowsALargeNumberInALineOfItsOwn) {
  monday_.exercises = {Exercise("First", 0)};
  monday_.exercises[0].sets = {Set(1, "-1.234568e+07", "-8.765432e-11")};
  EXPECT_THAT(Pdf(monday_), AllOf(HasSubstr(" -1.234568e+07 "), HasSubstr(" -8.765432e-11 ")));
}

TEST_F(PrintedSheet, HoldsNamesOfAllScripts) {
  monday_.exercises = {Exercise("Приседания", 1), Exercise("Übung", 1), Exercise("לחיצת חזה", 1)};
  EXPECT_THAT(Pdf(monday_),
              AllOf(HasSubstr("Приседания"), HasSubstr("Übung"), HasSubstr("לחיצת חזה")));
}

TEST_F(PrintedSheet, IsForThePaperOfTheCountry) {
  const QLocale before;
  QLocale::setDefault(QLocale("en_US"));
  EXPECT_EQ(UsualPaper().id(), QPageSize::Letter);
  QLocale::setDefault(QLocale("de_DE"));
  EXPECT_EQ(UsualPaper().id(), QPageSize::A4);
  QLocale::setDefault(before);
}

/// Only the pages that are asked for, drawn for a printer.
TEST_F(PrintedSheet, GoesToThePrinterAsFarAsItIsAskedFor) {
  monday_.exercises = {Exercise("First", 17), Exercise("Second", 17), Exercise("Third", 17)};
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName("printed.pdf");
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPrintRange(QPrinter::PageRange);
  printer.setFromTo(2, 3);
  DrawOnPrinter(monday_, printer);
  const std::string text = TextOfPdf("printed.pdf");
  EXPECT_EQ(PagesOf(text), 2);
  EXPECT_THAT(text, AllOf(HasSubstr("Page 2 of 3"), HasSubstr("Page 3 of 3"), HasSubstr("Third"),
                          testing::Not(HasSubstr("First"))));
}

TEST_F(PrintedSheet, SaysThatAPrinterTakesNoPages) {
  monday_.exercises = {Exercise("First", 1)};
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName("nowhere/printed.pdf");
  EXPECT_THROW(DrawOnPrinter(monday_, printer), std::runtime_error);
}

TEST_F(PrintedSheet, IsBlackOnWhiteWhateverThePalette) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(
      QPalette(Qt::red, Qt::black, Qt::red, Qt::red, Qt::red, Qt::red, Qt::black));
  monday_.exercises = {Exercise("First", 2)};
  QImage paper(800, 1100, QImage::Format_RGB32);
  paper.fill(Qt::white);
  const SheetPages pages(monday_, paper);
  QPainter painter(&paper);
  pages.Draw(painter, 0);
  painter.end();
  QApplication::setPalette(before);
  EXPECT_TRUE(paper.isGrayscale());
  const QImage grey = paper.convertToFormat(QImage::Format_Grayscale8);
  EXPECT_TRUE(std::any_of(grey.bits(), grey.bits() + grey.sizeInBytes(),
                          [](uchar pixel) { return pixel == 0; }));
}

/// While this object exists, the printing system is out of reach.
class NoPrinters {
 public:
  NoPrinters() : before_(qgetenv("CUPS_SERVER")) { qputenv("CUPS_SERVER", "/nowhere/cups.sock"); }
  ~NoPrinters() {
    if (before_.isNull()) {
      qunsetenv("CUPS_SERVER");
    } else {
      qputenv("CUPS_SERVER", before_);
    }
  }
  NoPrinters(const NoPrinters&) = delete;
  NoPrinters& operator=(const NoPrinters&) = delete;

 private:
  QByteArray before_;
};

/// The window with one exercise.
class PrintingOfTheWindow : public FormFixture {
 protected:
  PrintingOfTheWindow() { AddExercise("Squat").NumberOfSets = 1; }

  void Trigger(const char* name) { Get<QAction>(name).trigger(); }
};

TEST_F(PrintingOfTheWindow, MakesAPdf) {
  const std::string path = folder.Path() + "sheet.pdf";
  dialogs.answers = {path};
  Trigger("SavePdfAction");
  EXPECT_THAT(TextOfPdf(path), HasSubstr("1. Squat"));
}

TEST_F(PrintingOfTheWindow, SaysThatThereIsNoPrinter) {
  const NoPrinters noPrinters;
  // A box would wait for a person, for example if printers are found in another way.
  QTimer rescue;
  QObject::connect(&rescue, &QTimer::timeout, [] {
    if (QWidget* box = QApplication::activeModalWidget()) box->close();
  });
  rescue.start(0);
  Trigger("PrintAction");
  rescue.stop();
  EXPECT_THAT(dialogs.asked, testing::ElementsAre(HasSubstr("No printer is set up")));
}

TEST_F(PrintingOfTheWindow, ExportsOneAndAllWorkouts) {
  const std::string path = folder.Path() + "table.csv";
  dialogs.answers = {path, path};
  Trigger("ExportCsvAction");
  EXPECT_THAT(GetTextFile(path), HasSubstr("Monday,1,Squat,"));
  Trigger("ExportAllCsvAction");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("1 workout with 1 line"));
}

TEST_F(PrintingOfTheWindow, NeedsAWorkoutExceptForTheExportOfAll) {
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  for (const char* name : {"PrintAction", "SavePdfAction", "ExportCsvAction"}) {
    EXPECT_FALSE(Get<QAction>(name).isEnabled()) << name;
  }
  EXPECT_TRUE(Get<QAction>("ExportAllCsvAction").isEnabled());
}

}  // namespace
}  // namespace repvolta
