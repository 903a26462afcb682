#include "shell/catalogue_actions.h"

#include <QFile>
#include <optional>

#include "core/catalogue_file.h"
#include "core/failure.h"
#include "engine/database.h"
#include "frame/catalogue.h"
#include "frame/long_work.h"
#include "frame/pointer.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "platform/files.h"
#include "platform/qtext.h"
#include "shell/switching.h"

namespace shell {
namespace {

using platform::qtext;

constexpr auto fileFilter = "Archivos de Zarquelin (*.zrq)|*.zrq|";
constexpr core::Bilingual newTitle{"Nuevo catálogo", "New catalog"};
constexpr core::Bilingual openTitle{"Abrir catálogo...", "Open catalog..."};
constexpr core::Bilingual saveTitle{"Guardar catálogo como ...", "Save catalog as ..."};
constexpr core::Bilingual saving{"  Guardando el catálogo ...", "  Saving the catalogue ..."};
constexpr core::Bilingual notWritten{"No se pudo escribir el archivo ", "This file could not be written: "};

std::string nativePath(const QString& chosen) {
    return QFile::encodeName(chosen).toStdString();
}

// Whether it is the source that cannot be copied: a damaged one can, byte by byte.
std::optional<engine::Error> unreadable(const std::string& source) {
    const auto opened = engine::OpenDatabase(source, engine::Use::ReadOnly);
    const bool isCopied = opened || opened.error().number == engine::error::unrecognizedFormat ||
                          opened.error().number == engine::error::corrupt;
    return isCopied ? std::nullopt : std::optional(opened.error());
}

}  // namespace

void CatalogueActions::clearSurface() {
    m_surface.lists.listView1.clear();
    m_surface.treeView1.clear();
    m_surface.estado.dejarCarga();
    m_surface.frame.status.blank();
}

// What was found in one catalogue is not to be shown over another.
void CatalogueActions::hidePanels() {
    m_switching.hidePanels();
    m_surface.lists.listView2.clear();
}

void CatalogueActions::openStateChange() {
    clearSurface();
    m_openChanged(true);
    m_surface.contadores = {};
}

void CatalogueActions::reportFailure(const std::string& source, const std::string& path,
                                     const engine::Error& error) {
    if (const auto unread = unreadable(source))
        return m_surface.frame.messages.show(
            qtext(core::failureMessage(source, *unread, m_surface.frame.idioma)));
    m_surface.frame.messages.show(qtext(notWritten.in(m_surface.frame.idioma)) +
                                  QFile::decodeName(path.c_str()) + QStringLiteral("\n") +
                                  qtext(core::failureSentence(error, m_surface.frame.idioma)));
}

void CatalogueActions::nuevo1() {
    m_surface.frame.catalogue.rememberAsLast();
    const QString chosen = m_surface.frame.dialogs.saveCatalogue(qtext(newTitle.in(m_surface.frame.idioma)),
                                                                 QString::fromUtf8(fileFilter));
    if (!chosen.isEmpty()) {
        const std::string path = nativePath(chosen);
        if (const auto created = core::createCatalogue(path); !created) {
            reportFailure(core::templatePath(), path, created.error());
            return;
        }
        m_switching.endScan();
        m_surface.frame.catalogue.setPath(path);
        openStateChange();
        hidePanels();
        m_opening.inicio();
        m_surface.frame.toolbar.setPressed(frame::Toolbar::Explore, true);
    }
    m_surface.frame.catalogue.rememberAsLast();
}

void CatalogueActions::abrir1() {
    m_surface.frame.catalogue.rememberAsLast();
    const QString chosen = m_surface.frame.dialogs.openCatalogue(qtext(openTitle.in(m_surface.frame.idioma)),
                                                                 QString::fromUtf8(fileFilter));
    if (!chosen.isEmpty()) {
        const frame::Hourglass hourglass;
        m_switching.endScan();
        m_surface.frame.catalogue.setPath(nativePath(chosen));
        m_surface.frame.catalogue.saveLast(m_surface.frame.catalogue.path());
        openStateChange();
        hidePanels();
        m_opening.inicio();
        m_surface.frame.toolbar.setPressed(frame::Toolbar::Explore, true);
    }
    m_surface.frame.catalogue.rememberAsLast();
}

void CatalogueActions::reciente1() {
    m_surface.frame.catalogue.readLast();
    reopen(m_surface.frame.catalogue.last());
}

void CatalogueActions::reopen(const std::string& path) {
    const frame::Hourglass hourglass;
    if (!path.empty() && platform::FileExists(path)) {
        m_switching.endScan();
        m_surface.frame.catalogue.setPath(path);
        openStateChange();
        hidePanels();
        m_surface.frame.toolbar.setPressed(frame::Toolbar::Explore, true);
        m_surface.frame.catalogue.rememberAsLast();
        m_opening.inicio();
    } else {
        m_switching.showSearchPanel();
        m_surface.frame.toolbar.setPressed(frame::Toolbar::Explore, true);
    }
}

void CatalogueActions::abrirdesdearchivo() {
    if (!m_surface.frame.catalogue.isSet()) return;
    openStateChange();
    hidePanels();
    m_opening.inicio();
    m_surface.frame.catalogue.rememberAsLast();
}

void CatalogueActions::guardar() {
    frame::Catalogue& catalogue = m_surface.frame.catalogue;
    if (catalogue.isSet()) {
        catalogue.readLast();
        m_surface.frame.toolbar.setRecent(QFile::decodeName(catalogue.last().c_str()));
    }
    const QString chosen = m_surface.frame.dialogs.saveCatalogue(qtext(saveTitle.in(m_surface.frame.idioma)),
                                                                 QString::fromUtf8(fileFilter));
    if (chosen.isEmpty()) return;

    const std::string path = nativePath(chosen);
    const auto copied = [&] {
        frame::LongWork work(m_surface.frame, saving);
        work.closeMenu();
        return core::copyCatalogue(catalogue.path(), path);
    }();
    if (!copied) {
        // The catalogue stays the old one, also when it was to be copied onto itself.
        reportFailure(catalogue.path(), path, copied.error());
        return;
    }
    m_switching.endScan();
    catalogue.saveLast(path);
    catalogue.setPath(path);
    openStateChange();
    m_opening.inicio();
    m_opening.agregarcombo3();
}

void CatalogueActions::cerrar() {
    m_opening.abandon();
    m_switching.endScan();
    clearSurface();
    m_surface.imageCombo1.clear();
    m_surface.estado.indicecombo = 0;
    hidePanels();
    m_openChanged(false);
    m_surface.frame.toolbar.releaseAll(frame::Toolbar::New, frame::Toolbar::Stop);
}

}  // namespace shell
