#include "scan/status_text.h"

#include "core/failure.h"

namespace scan {
namespace {

std::string joined(std::string_view folders, std::string_view files, const Counts& counts) {
    return std::string(folders) + std::to_string(counts.folders) + std::string(files) +
           std::to_string(counts.files);
}

constexpr core::Bilingual notCatalogued{"  Sin catalogar: ", "  Not catalogued: "};
constexpr core::Bilingual notWritten{"  Filas sin guardar: ", "  Rows not stored: "};

}  // namespace

std::string runningStatus(const Counts& counts, core::Language language) {
    const core::Rotulos& rotulos = core::rotulos(language);
    return joined(rotulos.rotuloprefijocarpetas, rotulos.rotuloprefijoarchivos, counts);
}

std::string finalStatus(const Counts& counts, core::Language language) {
    if (language == core::Language::Spanish) return runningStatus(counts, language);
    return joined(" Folders : ", " Files : ", counts);
}

std::string missingText(const LeftOut& leftOut, const WriteSummary& writes, core::Language language) {
    std::string text;
    if (writes.lost > 0) text.append(notWritten.in(language)).append(std::to_string(writes.lost));
    if (writes.firstError) text.append(". ").append(core::failureSentence(*writes.firstError, language));
    if (const std::string failed = leftOut.failedText(language); !failed.empty())
        text.append(notCatalogued.in(language)).append(failed);
    return text;
}

}  // namespace scan
