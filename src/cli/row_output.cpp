#include "cli/row_output.h"

#include "cli/console.h"
#include "cli/output.h"

namespace cli {
namespace {

constexpr core::Bilingual notInADrive{" filas no tienen ruta: su unidad de disco no está",
                                      " rows have no path: their drive is not there"};

}  // namespace

RowOutput::RowOutput(const Invocation& invocation)
    : m_invocation(invocation), m_paths(invocation.arguments.has(pathsOption.name)) {
    if (m_paths || invocation.arguments.json) m_drives = platform::Drives::current();
}

bool RowOutput::forPrograms(const core::CatalogRow& row) {
    if (m_paths) {
        if (const auto path = nativePath(row, m_drives))
            print(*path + '\0');
        else
            ++m_withoutPath;
        return true;
    }
    if (!m_invocation.arguments.json) return false;
    JsonLine line;
    if (!m_catalogue.empty()) line.text("catalogue", m_catalogue);
    addRow(line, row, m_drives);
    print(line.take());
    return true;
}

int RowOutput::status(bool foundAny) const {
    if (m_withoutPath == 0) return foundAny ? Done : NothingFound;
    return fail(NothingFound,
                std::to_string(m_withoutPath) + std::string(notInADrive.in(m_invocation.language)));
}

}  // namespace cli
