#include "controls/pictures.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStandardPaths>
#include <QStyle>
#include <array>
#include <initializer_list>

#include "controls/drawn_icon.h"
#include "controls/selectable_icon.h"

namespace controls {
namespace {

using Shape = DrawnIcon::Shape;
using Emblem = DrawnIcon::Emblem;

struct Picture {
    std::array<const char*, 3> themeNames;  // the first that the theme has
    Shape shape;
    Emblem emblem;
    QRgb colour;
};

constexpr std::array<Picture, pictureCount> pictures{{
    {{"none", "application-octet-stream", "unknown"}, Shape::Page, Emblem::None, 0x5f656b},  // 1 plain file
    {{"folder", "inode-directory"}, Shape::ClosedFolder, Emblem::None, 0x3daee9},            // 2 folder
    {{"folder-open", "folder"}, Shape::OpenFolder, Emblem::None, 0x3daee9},                  // 3 open folder
    {{"media-optical", "drive-optical"}, Shape::Disc, Emblem::None, 0x3daee9},               // 4 new unit
    {{"drive-removable-media", "media-flash"}, Shape::Drive, Emblem::None, 0x27ae60},        // 5
    {{"drive-harddisk"}, Shape::Drive, Emblem::None, 0x7f8c8d},                              // 6
    {{"audio-x-generic"}, Shape::Page, Emblem::Note, 0xf67400},                              // 7
    {{"image-x-generic"}, Shape::Page, Emblem::Hills, 0x27ae60},                             // 8
    {{"video-x-generic"}, Shape::Page, Emblem::Play, 0x8e44ad},                              // 9
    {{"application-x-executable"}, Shape::Page, Emblem::Window, 0x2980b9},                   // 10
    {{"text-x-generic"}, Shape::Page, Emblem::Lines, 0x4d4d4d},                              // 11
    {{"text-html"}, Shape::Page, Emblem::Globe, 0x2980b9},                                   // 12
    {{"application-zip", "package-x-generic"}, Shape::Page, Emblem::Zipper, 0xb8860b},       // 13 zipped
    {{"unknown", "application-octet-stream"}, Shape::Page, Emblem::Dots, 0x7f8c8d},          // 14 the rest
    {{"folder-library", "folder-documents"}, Shape::Stack, Emblem::None, 0x3daee9},          // 15 catalogue
    {{"media-optical-data", "media-optical"}, Shape::Disc, Emblem::None, 0x9b59b6},  // 16 scanned unit
    {{"applications-games", "input-gaming"}, Shape::Button, Emblem::Pad, 0xda4453},  // 17 games
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

QIcon makePicture(const Picture& picture) {
    for (const char* name : picture.themeNames)
        if (name != nullptr && QIcon::hasThemeIcon(QLatin1String(name)))
            return QIcon::fromTheme(QLatin1String(name));
    return drawnIcon(picture.shape, picture.emblem, picture.colour);
}

// The pictures are asked for by every painted row, so they are looked up once.
std::array<QIcon, pictureCount>& pictureCache() {
    static std::array<QIcon, pictureCount> cache;
    return cache;
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
    const auto place = static_cast<std::size_t>(number - 1);
    QIcon& icon = pictureCache()[place];
    if (icon.isNull()) icon = selectableIcon(makePicture(pictures[place]));
    return icon;
}

QIcon actionIcon(const QString& name) {
    if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
    for (const StyleSymbol& symbol : styleSymbols)
        if (name == QLatin1String(symbol.name)) return QApplication::style()->standardIcon(symbol.symbol);
    return drawnIcon(Shape::Button, Emblem::None, 0x3daee9);
}

void installIconTheme() {
    addInstalledThemes();
    const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    const QString breeze = dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setFallbackThemeName(breeze);
    if (!isInstalled(QIcon::themeName())) QIcon::setThemeName(breeze);
    pictureCache().fill(QIcon());
}

}  // namespace controls
