#include "copyback/copy_run.h"

#include <array>
#include <optional>

#include "core/locate.h"
#include "core/text.h"

namespace copyback {
namespace {

using core::Bilingual;
using core::Notice;
using core::Spelling;

constexpr Bilingual noFolders{"No se pueden copiar carpetas.", "Foldes can´t be copied."};
constexpr Bilingual finished{"El copiado de archivos a finalizado exitosamente.",
                             "The copy has finished successfully."};
constexpr Bilingual unitEmpty{"La unidad se encuentra vacia.", "The unit is empty."};
constexpr Bilingual fileIs{"El archivo ", "The file "};
constexpr Bilingual readOnly{" ya existe y es de solo lectura.", " already exists and is a read only file."};

// Beside a file that was found in another drive.
constexpr std::array besideFound{core::Candidate{Spelling::Stored, Spelling::Stored},
                                 core::Candidate{Spelling::Stored, Spelling::Restored}};
// The spelling whose copy takes its name from ListView2, whichever list is walked.
constexpr core::Candidate bothRestored{Spelling::Restored, Spelling::Restored};

class CopyRun {
  public:
    CopyRun(const CopyRequest& request, const CopyPorts& ports)
        : m_request(request), m_ports(ports), m_drives(ports.drives()) {}

    RunEnd run();

  private:
    enum class Turn { Next, FoundElsewhere, Folder, Failed };

    [[nodiscard]] Turn treat(const ItemReader& list, int position);
    [[nodiscard]] Turn treatBeside(const core::CataloguedFile& file, int position);
    [[nodiscard]] Turn treatByScan(const core::CataloguedFile& file, const Item& item, int position);
    [[nodiscard]] Turn copy(const std::string& source, std::string_view name, int position, Turn done);
    [[nodiscard]] std::optional<RunEnd> strayIntoListView2(int position);
    void tellFailure(int number, int position);
    void tell(Bilingual text) { m_ports.tell({std::string(text.in(m_request.idioma))}); }

    const CopyRequest& m_request;
    const CopyPorts& m_ports;
    platform::Drives m_drives;  // renewed by each drive scan
    std::string m_basehallada;
};

RunEnd CopyRun::run() {
    const ItemReader& list = m_request.searchShown ? m_request.listView2 : m_request.listView1;
    for (int position = list.count() - 1; position >= 0 && m_request.indicefila >= 0; --position) {
        if (!list.isSelected(position)) continue;
        switch (treat(list, position)) {
            case Turn::Next:
                break;
            case Turn::FoundElsewhere:
                if (m_request.searchShown) break;
                if (const auto end = strayIntoListView2(position)) return *end;
                break;
            case Turn::Folder:
                return RunEnd::Folder;
            case Turn::Failed:
                return RunEnd::Failed;
        }
    }
    m_ports.tell({.text = std::string(finished.in(m_request.idioma)), .style = Notice::Style::Information});
    return RunEnd::Complete;
}

std::optional<RunEnd> CopyRun::strayIntoListView2(int position) {
    const ItemReader& list = m_request.listView2;
    if (position >= list.count()) return RunEnd::Broken;
    if (!list.isSelected(position)) return std::nullopt;
    switch (treat(list, position)) {
        case Turn::Folder:
            return RunEnd::Folder;
        case Turn::Failed:
            return RunEnd::Failed;
        default:
            return std::nullopt;
    }
}

CopyRun::Turn CopyRun::treat(const ItemReader& list, int position) {
    const Item item = list.item(position);
    if (item.type == core::rotulos(m_request.idioma).rotulocarpeta) {
        tell(noFolders);
        return Turn::Folder;
    }
    const core::CataloguedFile file{item.ruta, item.text};
    if (const auto found = core::findWhereScanned(m_drives, file))
        return copy(found->path, found->name, position, Turn::Next);
    if (core::isOnFixedDisk(m_drives, file)) {
        m_ports.tell(core::noSuchFile(item.text, m_request.idioma));
        return Turn::Next;
    }
    return m_basehallada.empty() ? treatByScan(file, item, position) : treatBeside(file, position);
}

// Once a medium was found elsewhere, its other files are looked for in the same folder only, silently.
CopyRun::Turn CopyRun::treatBeside(const core::CataloguedFile& file, int position) {
    const auto found = core::findFile(m_drives, m_basehallada, file.name, besideFound);
    return found ? copy(found->path, found->name, position, Turn::FoundElsewhere) : Turn::Next;
}

CopyRun::Turn CopyRun::treatByScan(const core::CataloguedFile& file, const Item& item, int position) {
    const auto found =
        core::scanDrivesAsking([this] { return m_drives = m_ports.drives(); }, file, core::scanCandidates,
                               [&] { m_ports.tell(core::introduceUnit(item.disco, m_request.idioma)); });
    if (!found) {
        m_ports.tell(core::noSuchFile(item.text, m_request.idioma));
        return Turn::Next;
    }
    m_basehallada = found->base;
    if (found->candidate != bothRestored)
        return copy(found->path, found->name, position, Turn::FoundElsewhere);

    if (position >= m_request.listView2.count()) return Turn::Failed;
    const std::string name = core::withApostrophes(m_request.listView2.item(position).text);
    const auto source = m_drives.toNativePath(core::joinPath(found->base, name));
    return source ? copy(*source, name, position, Turn::FoundElsewhere) : Turn::Failed;
}

CopyRun::Turn CopyRun::copy(const std::string& source, std::string_view name, int position, Turn done) {
    const auto copied = m_ports.copy(source, core::destinationIn(m_request.carpetadestino, name));
    if (copied) return done;
    tellFailure(copied.error().number, position);
    return Turn::Failed;
}

void CopyRun::tellFailure(int number, int position) {
    if (number == platform::FileError::pathNotFound) tell(unitEmpty);
    if (number != platform::FileError::permissionDenied) return;
    // The name is the one in ListView1 at this index, whichever list is walked.
    const bool inListView1 = position < m_request.listView1.count();
    const ItemReader& list = inListView1 ? m_request.listView1 : m_request.listView2;
    m_ports.tell({std::string(fileIs.in(m_request.idioma))
                      .append(list.item(position).text)
                      .append(readOnly.in(m_request.idioma))});
}

}  // namespace

RunEnd copyFiles(const CopyRequest& request, const CopyPorts& ports) {
    return CopyRun(request, ports).run();
}

}  // namespace copyback
