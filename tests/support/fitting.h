#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTabBar>

namespace test {

// Fields, buttons and captions stay whole on every page of a panel, in the narrowest and a wide one, whatever
// the size of the letters.
inline void expectNothingCutOff(QWidget& panel, int narrowest) {
    auto& tabs = *panel.findChild<QTabBar*>();
    for (const int points : {8, 10, 12})
        for (const int width : {narrowest, 400}) {
            QFont font = panel.font();
            font.setPointSize(points);
            panel.setFont(font);
            panel.resize(width, 400);
            for (int page = 0; page < tabs.count(); ++page) {
                tabs.setCurrentIndex(page);
                QApplication::processEvents();
                SCOPED_TRACE(testing::Message() << points << " points, " << width << " wide, page " << page);
                EXPECT_EQ(panel.width(), width);
                EXPECT_LE(tabs.tabRect(page).right(), tabs.width());
                EXPECT_GE(tabs.tabRect(page).width(),
                          tabs.fontMetrics().horizontalAdvance(tabs.tabText(page).trimmed()));
                for (const QWidget* each : panel.findChildren<QWidget*>()) {
                    if (!each->isVisible()) continue;
                    EXPECT_TRUE(each->parentWidget()->rect().contains(each->geometry()))
                        << each->objectName().toStdString();
                    const auto* label = qobject_cast<const QLabel*>(each);
                    EXPECT_TRUE(!label || label->height() >= label->heightForWidth(label->width()))
                        << each->objectName().toStdString();
                }
            }
        }
}

}  // namespace test
