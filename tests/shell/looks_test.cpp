// What the windows look like: where things stand, what can be read, light and dark.

#include <QCheckBox>
#include <QImage>
#include <cmath>

#include "controls/pictures.h"
#include "shell/quick_start.h"
#include "support/dark_palette.h"
#include "support/main_window.h"

namespace {

using core::Language;

class Looks : public test::MainWindow {
  protected:
    ~Looks() override { QApplication::setPalette(m_light); }
    [[nodiscard]] QRect place(const char* name) { return control(name).geometry(); }

  private:
    QPalette m_light = QApplication::palette();
};

TEST_F(Looks, AtEightPointsEverythingStandsWhereItIsTold) {
    startWithFotos();
    choose("explorar");
    form->resize(1000, 660);
    EXPECT_EQ(place("Frame1"), QRect(0, -6, 993, 85));
    EXPECT_EQ(place("Toolbar1").width(), 990);
    EXPECT_EQ(place("ImageCombo1").width(), 927);
    EXPECT_EQ(place("TreeView1").topLeft(), QPoint(0, 80));
    EXPECT_EQ(place("ListView1").top(), 80);
    EXPECT_EQ(place("ListView1").width(), 1000 - place("imgSplitter").left() - 10);
    EXPECT_EQ(place("Picture4").height(), 25);
    EXPECT_EQ(place("Text9"), QRect(0, 3, 333, 21));
    EXPECT_EQ(place("Label3"), QRect(335, 3, 133, 21));
    EXPECT_EQ(place("ProgressBar1"), place("Label3"));
    EXPECT_EQ(place("Picture16"), QRect(470, 3, 27, 21));
    EXPECT_EQ(place("Label2").topLeft(), QPoint(499, 3));
}

double luminance(const QColor& colour) {
    const auto part = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}
double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// By the colours that each text is painted with, where it is shown and can be used.
void expectReadable(QWidget& window) {
    int texts = 0;
    for (const QWidget* each : window.findChildren<QWidget*>()) {
        if (!each->isVisible() || !each->isEnabled()) continue;
        const bool onBase = each->inherits("QLineEdit") || each->inherits("QAbstractItemView") ||
                            each->inherits("QPlainTextEdit");
        const bool plain =
            each->inherits("QLabel") || each->inherits("QAbstractButton") || each->inherits("QTabBar");
        if (!onBase && !plain) continue;
        ++texts;
        const QPalette palette = each->palette();
        QColor ground = palette.color(onBase ? QPalette::Base : each->backgroundRole());
        if (ground.alpha() == 0) ground = palette.color(QPalette::Window);
        EXPECT_GE(contrast(palette.color(onBase ? QPalette::Text : each->foregroundRole()), ground), 4.5)
            << each->metaObject()->className() << ' ' << each->objectName().toStdString();
    }
    EXPECT_GT(texts, 2);
}

QImage drawn(const QIcon& icon, double ratio) {
    return icon.pixmap(QSize(16, 16), ratio).toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST_F(Looks, FollowADarkPaletteWhileRunning) {
    controls::installIconTheme();
    startWithFotos();
    choose("explorar");
    click("Fotos :");
    choose("graficos");
    choose("Propiedades");
    choose("buscar");
    const QPalette light = QApplication::palette();
    for (const QPalette& palette : {light, test::darkPalette(), light}) {
        QApplication::setPalette(palette);
        QApplication::processEvents();
        const bool dark = palette.color(QPalette::Window).lightness() < 128;
        for (int tab = 0; tab < 5; ++tab) {
            control<QTabBar>("TabStrip1").setCurrentIndex(tab);
            control<QCheckBox>(("Check1(" + std::to_string(tab) + ')').c_str()).setChecked(true);
            expectReadable(*form);
        }
        for (const char* window : {"Form3", "Form4"}) expectReadable(control(window));
        EXPECT_EQ(QIcon::themeName(), dark ? "breeze-dark" : "breeze");
        const QImage icon = drawn(frame().toolbar.button(1)->icon(), 2);
        int bright = 0, all = 0;
        for (int y = 0; y < icon.height(); ++y)
            for (int x = 0; x < icon.width(); ++x)
                if (const QColor pixel = icon.pixelColor(x, y); pixel.alpha() > 200) {
                    ++all;
                    bright += pixel.lightness() > 128;
                }
        EXPECT_EQ(bright > all / 2, dark);
    }
}

TEST(Pictures, AreToldApartAtEveryScaleAndAreTheSameAtEach) {
    for (const double ratio : {1.0, 1.5, 2.0})
        for (int one = 1; one <= controls::pictureCount; ++one) {
            const QImage here = drawn(controls::picture(one), ratio);
            for (int other = 1; other < one; ++other) {
                const QImage there = drawn(controls::picture(other), ratio);
                long long difference = 0;
                for (int y = 0; y < here.height(); ++y)
                    for (int x = 0; x < here.width(); ++x) {
                        const QColor a = here.pixelColor(x, y), b = there.pixelColor(x, y);
                        difference += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                                      std::abs(a.blue() - b.blue()) + std::abs(a.alpha() - b.alpha());
                    }
                EXPECT_GT(difference / (ratio * ratio), 1500) << one << " and " << other << " at " << ratio;
            }
            const QImage small = here.scaled(4, 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const QImage big = drawn(controls::picture(one), 4)
                                   .scaled(4, 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            for (int at = 0; at < 16; ++at) {
                const QColor a = small.pixelColor(at % 4, at / 4), b = big.pixelColor(at % 4, at / 4);
                EXPECT_LT(std::abs(a.lightness() - b.lightness()), 48) << one << " at " << ratio;
            }
        }
}

}  // namespace
