#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QResizeEvent>
#include <QToolButton>
#include <algorithm>

#include "controls/value_button.h"
#include "frame/enabling.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"

namespace {

using core::Language;
using frame::StatusBand;
using frame::Toolbar;

TEST(Toolbar, ShowsItsCaptionsWhereThereIsRoom) {
    for (const Language language : {Language::Spanish, Language::English}) {
        frame::Toolbar toolbar(language);
        toolbar.setRecent("/home/ana/b.zrq");
        const auto styleAt = [&](int width) {
            toolbar.resize(width, 50);
            QResizeEvent event(toolbar.size(), {});
            QApplication::sendEvent(&toolbar, &event);
            return toolbar.button(frame::Toolbar::Statistics)->toolButtonStyle();
        };
        EXPECT_EQ(styleAt(400), Qt::ToolButtonIconOnly);
        EXPECT_EQ(styleAt(790), Qt::ToolButtonTextUnderIcon) << "a window of 800 pixels";
        EXPECT_EQ(toolbar.caption(9), language == Language::Spanish ? "Estadíst." : "Statistics");
        toolbar.hideCaptions();
        EXPECT_EQ(styleAt(790), Qt::ToolButtonIconOnly);
    }
}

TEST(StatusBand, BoundsItsProgressAndFitsItsTextAtEveryFontSize) {
    frame::StatusBand band(Language::Spanish);
    band.showProgress(0);
    for (int step = 0; step < 2; ++step) band.advanceProgress();
    EXPECT_EQ(band.progress().value(), 1);
    band.setKind("Unidad de archivos varios");
    for (const int points : {8, 10, 12}) {
        band.applyFontSize(points);
        band.resize(1200, band.sizeHint().height());
        QResizeEvent event(band.QWidget::size(), {});
        QApplication::sendEvent(&band, &event);
        for (const char* name : {"Text9", "Label3", "Label2"}) {
            const auto* label = band.findChild<QLabel*>(name);
            EXPECT_GE(label->height(), label->fontMetrics().height()) << name << points;
            EXPECT_LE(label->geometry().bottom(), band.height()) << name << points;
            EXPECT_EQ(label->font().pointSize(), points);
        }
        const auto* kind = band.findChild<QLabel*>("Label2");
        EXPECT_GE(kind->width(), kind->sizeHint().width());
    }
}

TEST(StatusBand, ALongLineTakesTheRoomThatNothingElseNeeds) {
    StatusBand band(Language::English);
    band.resize(1000, 25);
    band.show();
    const auto& line = *band.findChild<QLabel*>("Text9");
    band.setText("  Unit: " + std::string(60, 'n') + "  Folders: 12345  Files: 123456");
    QApplication::processEvents();
    EXPECT_GE(line.width(), line.sizeHint().width());
    band.resize(700, 25);
    band.setKind("Folders and files unit");
    band.setText(" Folders found: 12345678  Files found: 12345678" + std::string(20, '9'));
    QApplication::processEvents();
    EXPECT_GE(line.width(), line.sizeHint().width()) << "the kind gives way";
    band.setText("  Files: 1");
    QApplication::processEvents();
    EXPECT_EQ(line.width(), 333);
    band.setText("  Unit: a\nb :  Files: 1");
    const QImage broken = band.grab().toImage();
    band.setText("  Unit: a↵b :  Files: 1");
    EXPECT_EQ(band.grab().toImage(), broken) << "a name stays on the line";
}

// The entries that are off, in the order of their names, and behind "|" the buttons that are off.
std::string off(const frame::WindowState& state) {
    const frame::Enabled enabled = frame::enabledIn(state);
    std::vector<std::string> names;
    for (const frame::Enabled::Entry& entry : enabled.entries)
        if (!entry.enabled) names.emplace_back(entry.name);
    std::ranges::sort(names);
    std::string text;
    for (const std::string& name : names) text += name + ' ';
    text += '|';
    for (int button = 1; button <= 15; ++button)
        if (!enabled.buttons[button]) text += ' ' + std::to_string(button);
    return text;
}

TEST(Enabling, FollowsFromTheState) {
    EXPECT_EQ(
        off({}),
        "Copiararchivos Copiararchivos2 Herramientas Imprimir Parar1 buscar cerrar edicion explorar explore "
        "guardar ver | 4 5 6 7 8 9 10 11 12 13");
    EXPECT_EQ(off({.catalogueOpen = true}), "Copiararchivos Copiararchivos2 Parar1 | 13");
    EXPECT_EQ(off({.catalogueOpen = true, .running = true}),
              "Copiararchivos Copiararchivos2 compactar reparar |");
    EXPECT_EQ(off({.catalogueOpen = true, .listHasRows = true, .menuOfFolder = true}),
              "Parar1 borrarunidad cambiarnombre | 13");
    EXPECT_EQ(off({.catalogueOpen = true, .listHasRows = true, .recentMissing = true}),
              "Parar1 reciente | 13");
}

}  // namespace
