#include "print/print_action.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

#include "browse/item_list.h"
#include "print/list_printer.h"
#include "print/print_job.h"
#include "shell/frame/catalogue.h"
#include "shell/frame/frame.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

using core::Language;

namespace {

struct Desk {
    shell::Catalogue catalogue;
    test::RecordingMessages messages;
    test::ScriptedDialogs dialogs;
    shell::MenuBar menus{Language::Spanish};
    shell::Toolbar toolbar{Language::Spanish};
    shell::StatusBand status;
    shell::Frame frame{Language::Spanish, catalogue, messages, dialogs, menus, toolbar, status};
    QWidget window;
    browse::ItemList& listView1 = *new browse::ItemList(&window);
    browse::ItemList& listView2 = *new browse::ItemList(&window);
    browse::Lists lists{listView1, listView2};
};

void fill(browse::ItemList& list, int count) {
    list.beginFill();
    for (int i = 0; i < count; ++i) {
        browse::ListItem item;
        item.text = "item " + std::to_string(i);
        item.type = "Archivo";
        item.largo = i;
        list.add(item);
    }
    list.endFill();
}

qsizetype pagesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : -1;
}

}  // namespace

TEST(Imprimir1, PrintsTheShownListOncePerCopy) {
    QTemporaryDir folder;
    Desk desk;
    int dialogs = 0;
    desk.dialogs.onPrint = [&](QPrinter& printer) {
        ++dialogs;
        printer.setOutputFileName(folder.filePath("list.pdf"));
    };
    desk.dialogs.copies = 3;
    desk.listView2.hide();
    desk.toolbar.setPressed(shell::Toolbar::Search, true);
    print::Imprimir1(desk.frame, desk.lists);
    EXPECT_EQ(dialogs, 0) << "an empty list asks nothing";
    EXPECT_FALSE(desk.toolbar.isPressed(shell::Toolbar::Search));

    fill(desk.listView1, 31);
    fill(desk.listView2, 61);
    print::Imprimir1(desk.frame, desk.lists);
    EXPECT_EQ(dialogs, 1);
    for (const char* name : {"list.pdf", "list (2).pdf", "list (3).pdf"})
        EXPECT_EQ(pagesOf(folder.filePath(name)), 2) << name;
    EXPECT_FALSE(QFile::exists(folder.filePath("list (4).pdf")));

    desk.listView2.show();  // the search list lies over the other
    desk.dialogs.copies = 1;
    print::Imprimir1(desk.frame, desk.lists);
    EXPECT_EQ(pagesOf(folder.filePath("list.pdf")), 3);

    QFile::remove(folder.filePath("list.pdf"));
    desk.dialogs.copies.reset();
    print::Imprimir1(desk.frame, desk.lists);
    EXPECT_FALSE(QFile::exists(folder.filePath("list.pdf"))) << "cancelled";
    EXPECT_TRUE(desk.messages.shown.empty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(ListPrinter, WideTextsStayInTheirColumn) {
    print::Page page;
    page.texts.push_back({1, 0, 5, 3399, std::string(30, 'W') + "..."});
    page.texts.push_back({1, 400, 5, 3399, "narrow"});
    QImage paper(600, 80, QImage::Format_RGB32);  // ten twips to a dot
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.scale(0.1, 0.1);
    print::drawPage(painter, page);
    painter.end();

    const auto rightmost = [&](int top, int bottom) {
        int right = -1;
        for (int y = top; y < bottom; ++y)
            for (int x = 0; x < paper.width(); ++x)
                if (paper.pixelColor(x, y) != Qt::white) right = std::max(right, x);
        return right * 10;
    };
    const double blanks = 5 * QFontMetricsF(print::reportFont()).horizontalAdvance(u' ');
    EXPECT_GT(rightmost(0, 30), 3000);
    EXPECT_LE(rightmost(0, 30), 1 + blanks + 3399 + 20);
    EXPECT_GT(rightmost(40, 70), blanks);
    EXPECT_LT(rightmost(40, 70), 1500);
    EXPECT_LE(print::reportLineHeight() * 32 + 300, 11906) << "thirty rows on a sheet laid across";
}

TEST(PrintJob, NumbersTheFilesOfFurtherCopies) {
    EXPECT_EQ(print::copyFileName("/a.b/list.pdf", 1), "/a.b/list.pdf");
    EXPECT_EQ(print::copyFileName("/a.b/list.pdf", 2), "/a.b/list (2).pdf");
    EXPECT_EQ(print::copyFileName("/a.b/list", 12), "/a.b/list (12)");
}
