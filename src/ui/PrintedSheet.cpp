#include "ui/PrintedSheet.h"

#include <QBuffer>
#include <QLocale>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <stdexcept>

#include "base/Product.h"
#include "ui/SheetPages.h"
#include "ui/WheelGuard.h"

namespace repvolta {
namespace {

constexpr qreal kMargin = 15;  // millimetres
constexpr int kResolution = 1200;

/// Pages counted from 0, the last one included.
struct PageRange {
  int first;
  int last;
};

/// Works also where a printer needs wider margins than ours: then it keeps its own.
void SetMargins(QPagedPaintDevice& device) {
  device.setPageMargins({kMargin, kMargin, kMargin, kMargin}, QPageLayout::Millimeter);
}

void DrawPages(const SheetPages& pages, QPagedPaintDevice& device, const PageRange& range) {
  constexpr const char* kFailure = "The printer takes no pages.";
  QPainter painter;
  if (!painter.begin(&device)) throw std::runtime_error(kFailure);
  for (int page = range.first; page <= range.last; ++page) {
    if (page > range.first && !device.newPage()) throw std::runtime_error(kFailure);
    pages.Draw(painter, page);
  }
  if (!painter.end()) throw std::runtime_error(kFailure);
}

PageRange AskedFor(const QPrinter& printer, int pages) {
  const int last = pages - 1;
  if (printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1) return {0, last};
  return {std::min(printer.fromPage() - 1, last), std::clamp(printer.toPage() - 1, 0, last)};
}

}  // namespace

QPageSize UsualPaper() {
  const bool isLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

Bytes SheetAsPdf(const WorkoutSheet& sheet, const QPageSize& paper) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setTitle(QString::fromStdString(sheet.name));
    writer.setCreator(kProductName.data());
    writer.setResolution(kResolution);
    writer.setPageSize(paper);
    SetMargins(writer);
    const SheetPages pages(sheet, writer);
    DrawPages(pages, writer, {0, pages.Count() - 1});
  }
  const QByteArray& pdf = buffer.data();
  return {pdf.begin(), pdf.end()};
}

void DrawOnPrinter(const WorkoutSheet& sheet, QPrinter& printer) {
  SetMargins(printer);
  const SheetPages pages(sheet, printer);
  DrawPages(pages, printer, AskedFor(printer, pages.Count()));
}

Printing PrintSheet(const WorkoutSheet& sheet, QWidget* owner) {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) return Printing::kNoPrinter;
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QString::fromStdString(sheet.name));
  QPrintDialog dialog(&printer, owner);
  dialog.setObjectName("PrintDialog");
  dialog.setWindowTitle("Print");
  // A file is what "Save as PDF ..." makes.
  dialog.setOptions(QAbstractPrintDialog::PrintPageRange | QAbstractPrintDialog::PrintShowPageSize |
                    QAbstractPrintDialog::PrintCollateCopies);
  new WheelGuard(&dialog);
  if (dialog.exec() != QDialog::Accepted) return Printing::kCancelled;
  DrawOnPrinter(sheet, printer);
  return Printing::kSent;
}

}  // namespace repvolta
