#include "core/medium.h"

#include "core/text.h"
#include "platform/files.h"

namespace core {

std::string_view CataloguedFile::letraunidad() const {
    const std::size_t backslash = ruta.find('\\');
    return backslash == std::string::npos ? std::string_view() : std::string_view(ruta).substr(0, backslash);
}

bool CataloguedFile::liesInRoot() const {
    return !ruta.empty() && ruta.find('\\') == ruta.size() - 1;
}

std::string CataloguedFile::rutaotraunidad(std::string_view drive) const {
    return std::string(drive) + ruta.substr(letraunidad().size());
}

std::string spelled(std::string_view text, Spelling spelling) {
    return spelling == Spelling::Restored ? withApostrophes(text) : std::string(text);
}

std::optional<FoundFile> findFile(const platform::Drives& drives, std::string_view base,
                                  std::string_view name, std::span<const Candidate> candidates) {
    if (!drives.answers(base.substr(0, 2))) return std::nullopt;
    for (const Candidate& candidate : candidates) {
        FoundFile found{.path = {},
                        .folder = {},
                        .base = spelled(base, candidate.path),
                        .name = spelled(name, candidate.name),
                        .candidate = candidate};
        const auto folder = drives.toNativePath(found.base);
        const auto path = drives.toNativePath(joinPath(found.base, found.name));
        if (!folder || !path || !platform::FileExists(*path)) continue;
        found.folder = *folder;
        found.path = *path;
        return found;
    }
    return std::nullopt;
}

std::optional<FoundFile> scanDrives(const platform::Drives& drives, const CataloguedFile& file,
                                    std::span<const Candidate> candidates) {
    if (file.letraunidad().empty()) return std::nullopt;
    for (const platform::Drive& drive : drives.list()) {
        if (auto found = findFile(drives, file.rutaotraunidad(drive.name()), file.name, candidates))
            return found;
    }
    return std::nullopt;
}

std::optional<FoundFile> scanDrivesAsking(const DriveSource& drives, const CataloguedFile& file,
                                          std::span<const Candidate> candidates,
                                          const std::function<void()>& askForUnit) {
    if (auto found = scanDrives(drives(), file, candidates)) return found;
    askForUnit();
    return scanDrives(drives(), file, candidates);
}

Notice introduceUnit(std::string_view disco, Language language) {
    constexpr Bilingual text{"Introduzca la unidad ", "Introduce the unit "};
    return {std::string(text.in(language)).append(disco), "Zarquelin"};
}

Notice noSuchFile(std::string_view name, Language language) {
    constexpr Bilingual text{"No se encontró el archivo ", "This file can´t be find as "};
    return {std::string(text.in(language)).append(name)};
}

}  // namespace core
