#include "browse/open_file.h"

#include "platform/shell_open.h"

namespace browse {

OpenEnd openFile(const core::CataloguedFile& file, std::string_view disco, core::Language language,
                 const core::DriveSource& drives, const core::Tell& tell) {
    const platform::Drives now = drives();
    auto found = core::findFile(now, file.ruta, file.name, core::openingTries);
    if (!found && now.type(file.letraunidad()) != platform::DriveType::Fixed) {
        found = core::scanDrivesAsking(drives, file, core::openingTries,
                                       [&] { tell(core::introduceUnit(disco, language)); });
    }
    if (!found || !platform::isHarmless(found->path)) {
        tell(core::noSuchFile(file.name, language));
        return OpenEnd::NotFound;
    }
    platform::ShellExecute(found->path, found->folder);
    return OpenEnd::Opened;
}

}  // namespace browse
