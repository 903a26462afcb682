#include "print/print_action.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QTextLayout>

#include "platform/waiting.h"
#include "print/list_printer.h"
#include "support/catalogue_fixture.h"
#include "support/main_window.h"

namespace {

using Imprimir1 = test::MainWindow;

qsizetype pagesOf(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : -1;
}

}  // namespace

TEST_F(Imprimir1, PrintsTheShownListOncePerCopy) {
    const test::CatalogueFixture sample;
    sample.add(std::vector(31, test::fileRow("U :", "E:\\", "item")));
    sample.add(std::vector(30, test::fileRow("V :", "E:\\", "item")));
    int asked = 0;
    dialogs.onPrint = [&](QPrinter& printer) {
        ++asked;
        EXPECT_TRUE(printer.docName().startsWith("Zarquelin - "));
        printer.setOutputFileName(QString::fromStdString(folder / "list.pdf"));
    };
    dialogs.copies = 3;
    start(core::Language::Spanish, sample.path);
    frame().toolbar.setPressed(frame::Toolbar::Search, true);
    choose("Imprimir");
    EXPECT_EQ(asked, 0) << "an empty list asks nothing";
    EXPECT_FALSE(frame().toolbar.isPressed(frame::Toolbar::Search));

    click("U :");
    choose("Imprimir");
    EXPECT_EQ(asked, 1);
    for (const char* name : {"list.pdf", "list (2).pdf", "list (3).pdf"})
        EXPECT_EQ(pagesOf(folder / name), 2) << name;
    EXPECT_FALSE(QFile::exists(QString::fromStdString(folder / "list (4).pdf")));

    dialogs.copies = 2;
    test::writeFile(folder / "list (2).pdf", "mine");
    choose("Imprimir");
    EXPECT_EQ(test::readFile(folder / "list (2).pdf"), "mine") << "nobody was asked about it";
    EXPECT_EQ(pagesOf(folder / "list (4).pdf"), 2);

    choose("buscar");  // the search list lies over the other
    search("item");
    dialogs.copies = 1;
    press(frame::Toolbar::Print);
    EXPECT_EQ(pagesOf(folder / "list.pdf"), 3);

    std::filesystem::remove(folder / "list.pdf");
    dialogs.copies.reset();
    choose("Imprimir");
    EXPECT_EQ(pagesOf(folder / "list.pdf"), -1) << "cancelled";
    dialogs.copies = 1;
    dialogs.onPrint = [](QPrinter& printer) { printer.setOutputFileName("/nonexistent/list.pdf"); };
    choose("Imprimir");
    EXPECT_EQ(status(), "  No se pudo imprimir todo.");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(ListPrinter, WordsCanBeFoundInAPdf) {
    QTextLayout layout(QStringLiteral("Modified"), print::reportFont());
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    qsizetype glyphs = 0;
    for (const QGlyphRun& run : layout.glyphRuns()) glyphs += run.glyphIndexes().size();
    EXPECT_EQ(glyphs, 8) << "no ligature";
}

struct Rows : print::RowSource {
    [[nodiscard]] std::int64_t count() const override { return 61; }
    [[nodiscard]] print::ReportRow row(std::int64_t) const override { return {"a.txt", "", "", "", 1}; }
};

TEST(ListPrinter, TellsHowFarItIs) {
    const test::TemporaryFolder folder;
    QPrinter printer;
    printer.setOutputFileName(QString::fromStdString(folder / "list.pdf"));
    QPainter painter(&printer);
    std::vector<double> shares;
    const platform::Waiting waiting([&](std::optional<double> share) { shares.push_back(share.value()); });
    EXPECT_TRUE(print::printList(painter, printer, Rows(), core::Language::English));
    EXPECT_EQ(shares, (std::vector{1 / 3.0, 2 / 3.0, 1.0}));
}

// In a column of 3399 twips, ten of them to a dot.
QImage drawn(const std::string& text) {
    QImage paper(600, 30, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.scale(0.1, 0.1);
    print::drawPage(painter, {{{1, 0, 5, 3399, text}}, {}});
    return paper;
}

TEST(ListPrinter, TextsStayInTheirColumnAndLookAsInTheList) {
    const auto rightmost = [](const QImage& paper) {
        int right = -1;
        for (int y = 0; y < paper.height(); ++y)
            for (int x = 0; x < paper.width(); ++x)
                if (paper.pixelColor(x, y) != Qt::white) right = std::max(right, x);
        return right * 10;
    };
    const double blanks = 5 * QFontMetricsF(print::reportFont()).horizontalAdvance(u' ');
    const int wide = rightmost(drawn(std::string(30, 'W') + "...")), narrow = rightmost(drawn("narrow"));
    EXPECT_GT(wide, 3000);
    EXPECT_LE(wide, 1 + blanks + 3399 + 20);
    EXPECT_GT(narrow, blanks);
    EXPECT_LT(narrow, 1500);
    EXPECT_EQ(drawn("photo\u202Egpj.exe"), drawn("photo\uFFFDgpj.exe")) << "no program passes for a picture";
    EXPECT_LE(print::reportLineHeight() * 32 + 300, 11906) << "thirty rows on a sheet laid across";
}
