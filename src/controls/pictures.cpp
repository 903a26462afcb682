#include "controls/pictures.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStandardPaths>
#include <QStyle>
#include <algorithm>
#include <array>

#include "controls/drawn_icon.h"

namespace controls {
namespace {

using Shape = DrawnIcon::Shape;
using Emblem = DrawnIcon::Emblem;

struct Picture {
    Shape shape;
    Emblem emblem = Emblem::None;
    QRgb colour;
};

constexpr std::array<Picture, pictureCount> pictures{{
    {.shape = Shape::Page, .colour = 0x5f656b},                            // 1 plain file
    {.shape = Shape::ClosedFolder, .colour = 0x3daee9},                    // 2 folder
    {.shape = Shape::OpenFolder, .colour = 0x3daee9},                      // 3 open folder
    {.shape = Shape::Disc, .colour = 0x3daee9},                            // 4 new unit
    {.shape = Shape::Drive, .colour = 0x27ae60},                           // 5
    {.shape = Shape::Drive, .colour = 0x7f8c8d},                           // 6
    {.shape = Shape::Page, .emblem = Emblem::Note, .colour = 0xf67400},    // 7
    {.shape = Shape::Page, .emblem = Emblem::Hills, .colour = 0x27ae60},   // 8
    {.shape = Shape::Page, .emblem = Emblem::Play, .colour = 0x8e44ad},    // 9
    {.shape = Shape::Page, .emblem = Emblem::Window, .colour = 0x2980b9},  // 10
    {.shape = Shape::Page, .emblem = Emblem::Lines, .colour = 0x4d4d4d},   // 11
    {.shape = Shape::Page, .emblem = Emblem::Globe, .colour = 0x2980b9},   // 12
    {.shape = Shape::Page, .emblem = Emblem::Zipper, .colour = 0xb8860b},  // 13 zipped
    {.shape = Shape::Page, .emblem = Emblem::Dots, .colour = 0x7f8c8d},    // 14 the rest
    {.shape = Shape::Stack, .colour = 0x3daee9},                           // 15 catalogue
    {.shape = Shape::Disc, .colour = 0x9b59b6},                            // 16 scanned unit
    {.shape = Shape::Button, .emblem = Emblem::Pad, .colour = 0xda4453},   // 17 games
}};

// What the widget style draws for the symbols that it knows itself.
struct StyleSymbol {
    const char* name;
    QStyle::StandardPixmap symbol;
};

constexpr StyleSymbol styleSymbols[] = {
    {"document-new", QStyle::SP_FileIcon},
    {"document-open", QStyle::SP_DialogOpenButton},
    {"document-open-recent", QStyle::SP_DialogOpenButton},
    {"document-save", QStyle::SP_DialogSaveButton},
    {"document-save-as", QStyle::SP_DialogSaveButton},
    {"document-close", QStyle::SP_DialogCloseButton},
    {"application-exit", QStyle::SP_DialogCloseButton},
    {"go-up", QStyle::SP_FileDialogToParent},
    {"edit-find", QStyle::SP_FileDialogContentsView},
    {"view-refresh", QStyle::SP_BrowserReload},
    {"edit-delete", QStyle::SP_TrashIcon},
    {"process-stop", QStyle::SP_BrowserStop},
    {"view-list-details", QStyle::SP_FileDialogDetailedView},
    {"view-list-icons", QStyle::SP_FileDialogListView},
    {"document-import", QStyle::SP_DriveCDIcon},
    {"folder", QStyle::SP_DirIcon},
    {"folder-open", QStyle::SP_DirOpenIcon},
    {"help-contents", QStyle::SP_DialogHelpButton},
    {"help-about", QStyle::SP_MessageBoxInformation},
};

QIcon drawnIcon(Shape shape, Emblem emblem, QRgb colour) {
    return QIcon(new DrawnIcon(shape, emblem, QColor(colour)));
}

void addInstalledThemes() {
    QStringList paths = QIcon::themeSearchPaths();
    const QStringList installed = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    for (const QString& path : installed)
        if (!paths.contains(path)) paths.append(path);
    QIcon::setThemeSearchPaths(paths);
}

bool isInstalled(const QString& theme) {
    if (theme.isEmpty() || theme == QLatin1String("hicolor")) return false;
    const QStringList paths = QIcon::themeSearchPaths();
    return std::any_of(paths.begin(), paths.end(), [&](const QString& path) {
        return QDir(path).exists(theme + QLatin1String("/index.theme"));
    });
}

}  // namespace

QIcon picture(int number) {
    if (number < 1 || number > pictureCount) return {};
    // Every painted row asks for one, so they are made once.
    static std::array<QIcon, pictureCount> made;
    const auto place = static_cast<std::size_t>(number - 1);
    const Picture& picture = pictures[place];
    if (made[place].isNull()) made[place] = drawnIcon(picture.shape, picture.emblem, picture.colour);
    return made[place];
}

QIcon actionIcon(const QString& name) {
    if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
    for (const StyleSymbol& symbol : styleSymbols)
        if (name == QLatin1String(symbol.name)) return QApplication::style()->standardIcon(symbol.symbol);
    return drawnIcon(Shape::Button, Emblem::None, 0x3daee9);
}

void installIconTheme() {
    addInstalledThemes();
    followPalette();
}

// Icons that a theme gave are asked for anew by the toolkit when the theme's name changes.
void followPalette() {
    const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    const QString breeze = dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setFallbackThemeName(breeze);
    const QString theme = QIcon::themeName();
    const bool ours = theme == QLatin1String("breeze") || theme == QLatin1String("breeze-dark");
    if (theme != breeze && (ours || !isInstalled(theme))) QIcon::setThemeName(breeze);
}

}  // namespace controls
