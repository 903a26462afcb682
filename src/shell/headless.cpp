#include "shell/headless.h"

#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/catalogue_file.h"
#include "core/text.h"
#include "core/unit_name.h"
#include "engine/database.h"
#include "frame/menus.h"
#include "frame/pointer.h"
#include "platform/files.h"
#include "scan/refusal.h"
#include "shell/kept_choices.h"
#include "shell/main_window.h"

namespace shell {
namespace {

// Nobody is there to see a box: messages go to stderr, questions are answered with no.
class PrintedMessages : public frame::Messages {
  public:
    void show(const QString& text, const QString&, frame::MessageStyle) override {
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    }
    bool askYesNo(const QString&, const QString&) override { return false; }
};

// The folder chooser's answer is known, and given once; nothing else is asked.
class KnownFolder : public frame::Dialogs {
  public:
    explicit KnownFolder(QString folder) : m_folder(std::move(folder)) {}
    QString openCatalogue(const QString&, const QString&) override { return {}; }
    QString saveCatalogue(const QString&, const QString&) override { return {}; }
    QString chooseFolder(const QString&) override { return std::exchange(m_folder, {}); }
    std::optional<int> print(QPrinter&) override { return std::nullopt; }

  private:
    QString m_folder;
};

// As the folder chooser gives it, so that it has a drive and a name of its own.
QString fromTheRoot(const std::string& folder) {
    std::error_code missing;
    const auto path = std::filesystem::canonical(folder, missing);
    return QFile::decodeName(missing ? folder.c_str() : path.c_str());
}

// The folder's own name, of the characters that could have been typed.
QString unitName(const QString& folder) {
    QString name;
    for (const char32_t character : QFileInfo(folder).fileName().toStdU32String())
        if (core::isAllowed(character, scan::allowedInNames)) name += QString::fromUcs4(&character, 1);
    return name.isEmpty() ? QStringLiteral("Root") : name;
}

// Types and clicks what a user would on the import panel.
void importFolder(Form1& window, const QString& name) {
    window.surface().frame.menus.action(QStringLiteral("explore"))->trigger();
    window.findChild<QPushButton*>(QStringLiteral("Label19"))->click();
    window.findChild<QLineEdit*>(QStringLiteral("Text3"))->setText(name);
    window.findChild<QPushButton*>(QStringLiteral("Label20"))->click();
}

void showUnit(Form1& window, const QString& disco) {
    controls::TreeView& tree = window.surface().treeView1;
    browse::Node unit = tree.nodes().firstChild(browse::noNode);
    for (browse::Node root = unit; root != browse::noNode; root = tree.nodes().nextSibling(root))
        if (tree.nodes().text(root) == disco) unit = root;
    if (unit == browse::noNode) return;
    tree.setSelected(unit);
    emit tree.nodeClicked(unit);
    tree.setExpanded(unit, true);
}

}  // namespace

int runHeadless(const HeadlessJob& job) {
    if (!platform::FileExists(job.catalogue)) {
        if (const auto created = core::createCatalogue(job.catalogue); !created) {
            std::fprintf(stderr, "%s: %s\n", job.catalogue.c_str(), created.error().text.c_str());
            return 1;
        }
    }
    if (const auto usable = engine::OpenDatabase(job.catalogue, engine::Use::ReadOnly); !usable) {
        std::fprintf(stderr, "%s: %s\n", job.catalogue.c_str(), usable.error().text.c_str());
        return 1;
    }
    PrintedMessages messages;
    const QString folder = fromTheRoot(job.folder);
    KnownFolder dialogs(folder);
    Form1 window(chosenLanguage(), messages, dialogs);
    window.begin(job.catalogue);

    const QString name = unitName(folder);
    const std::string disco = core::discoOf(name.toStdString());
    const auto isThere = [&] { return window.surface().nombres.isUnit(disco); };
    if (!job.folder.empty() && !isThere()) {
        importFolder(window, name);
        if (!isThere()) return 1;  // the window has told why
    }
    showUnit(window, QString::fromStdString(disco));
    frame::yieldToQueue();
    if (!window.grab().save(QFile::decodeName(job.picture.c_str()), "PNG")) {
        std::fprintf(stderr, "%s: the picture could not be written\n", job.picture.c_str());
        return 1;
    }
    return 0;
}

}  // namespace shell
