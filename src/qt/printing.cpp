// SPDX-License-Identifier: MIT
#include "qt/printing.h"

#include "platform/fault.h"
#include "platform/file_replacement.h"
#include "qt/dialogs.h"
#include "qt/file_dialogs.h"
#include "qt/look.h"
#include "qt/page_painter.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

namespace tessit::qt {

namespace {

constexpr int dots_per_inch = 72;
constexpr auto program_name = "Tessit Control";
constexpr auto nameless_document = "Zephon Report";

[[noreturn]] void fail(const std::string& what) {
    throw Fault(FaultKind::write_failed, what);
}

class SystemPrinter : public Graphics {
public:
    explicit SystemPrinter(QPrinter& printer) : printer_(printer) {}

    double StringWidth(const std::string& text, const PageFont& font) override {
        return width_on_page(text, font, printer_);
    }

    void print(const Page& page) override {
        QPainter painter;
        const bool begun = painter.begin(&printer_);
        if (begun) {
            paint_page(painter, page);
        }
        if (!begun || !painter.end() || printer_.printerState() == QPrinter::Error) {
            fail("The printer \"" + printer_.printerName().toStdString() + "\" could not be used.");
        }
    }

private:
    QPrinter& printer_;
};

// Written in memory and then to its file as a whole.
class PdfFile : public Graphics {
public:
    explicit PdfFile(const QPrinter& printer)
        : target_(QFile::encodeName(printer.outputFileName()).toStdString()), writer_(&bytes_) {
        bytes_.open(QIODevice::WriteOnly);
        writer_.setPageLayout(printer.pageLayout());
        writer_.setResolution(dots_per_inch);
        writer_.setTitle(printer.docName());
        writer_.setCreator(QLatin1String(program_name));
    }

    double StringWidth(const std::string& text, const PageFont& font) override {
        return width_on_page(text, font, writer_);
    }

    void print(const Page& page) override {
        QPainter painter;
        const bool begun = painter.begin(&writer_);
        if (begun) {
            paint_page(painter, page);
        }
        if (!begun || !painter.end()) {
            fail("The file \"" + target_.string() + "\" could not be written: The page could not be painted.");
        }
        const auto file = FileReplacement::create(target_);
        const auto* first = reinterpret_cast<const std::uint8_t*>(bytes_.data().constData());
        file->write({first, static_cast<std::size_t>(bytes_.size())});
        file->commit();
    }

private:
    const std::filesystem::path target_;
    QBuffer bytes_;
    QPdfWriter writer_;
};

// There is one page, so that most of what the dialog could offer means nothing.
void leave_out_page_options(QPrintDialog& dialog) {
    for (const auto option : {QAbstractPrintDialog::PrintPageRange, QAbstractPrintDialog::PrintCollateCopies,
                              QAbstractPrintDialog::PrintSelection, QAbstractPrintDialog::PrintCurrentPage}) {
        dialog.setOption(option, false);
    }
}

// The dialog proposes a file's name on some window systems and in some versions of Qt, elsewhere its folder alone.
void propose_file(QPrintDialog& dialog, const QString& folder) {
    const std::string name = dialog.printer()->docName().toStdString() + ".pdf";
    if (auto* file = dialog.findChild<QLineEdit*>(QStringLiteral("filename"))) {
        file->setText(QDir(folder.isEmpty() ? QDir::homePath() : folder).filePath(proposed_name(name, ".pdf")));
    }
}

} // namespace

std::unique_ptr<Graphics> system_printer(QPrinter& printer) {
    return std::make_unique<SystemPrinter>(printer);
}

PrinterChoice::PrinterChoice() = default;
PrinterChoice::~PrinterChoice() = default;

QString PrinterChoice::folder() const {
    const QString file = printer_ == nullptr ? QString() : printer_->outputFileName();
    return file.isEmpty() ? file : QFileInfo(file).absolutePath();
}

std::unique_ptr<Graphics> PrinterChoice::ask(QWidget* parent, const QString& document, const QString& last_folder) {
    if (printer_ == nullptr) {
        printer_ = std::make_unique<QPrinter>();
        printer_->setResolution(dots_per_inch);
        printer_->setCreator(QLatin1String(program_name));
    }
    const bool same_file = !folder().isEmpty() && document == printer_->docName(); // the user's own name for it
    printer_->setDocName(document.isEmpty() ? QLatin1String(nameless_document) : document);
    QPrintDialog dialog(printer_.get(), parent);
    dialog.setObjectName(QStringLiteral("print_dialog"));
    dialog.setFont(desktop_font());
    dialog.setWindowTitle(QStringLiteral("Print \"%1\"").arg(printer_->docName()));
    leave_out_page_options(dialog);
    if (!same_file) {
        propose_file(dialog, folder().isEmpty() ? last_folder : folder());
    }
    count_dialog();
    if (dialog.exec() != QDialog::Accepted) {
        return nullptr;
    }
    printer_->setFullPage(true); // places count from the paper's corner, not from its margins
    if (printer_->outputFormat() == QPrinter::PdfFormat) {
        return std::make_unique<PdfFile>(*printer_);
    }
    return system_printer(*printer_);
}

} // namespace tessit::qt
