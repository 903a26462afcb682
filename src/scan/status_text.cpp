#include "scan/status_text.h"

namespace scan {
namespace {

std::string joined(std::string_view folders, std::string_view files, const Counts& counts) {
    return std::string(folders) + std::to_string(counts.folders) + std::string(files) +
           std::to_string(counts.files);
}

}  // namespace

std::string runningStatus(const Counts& counts, core::Language language) {
    const core::Rotulos& rotulos = core::rotulos(language);
    return joined(rotulos.rotuloprefijocarpetas, rotulos.rotuloprefijoarchivos, counts);
}

std::string finalStatus(const Counts& counts, core::Language language) {
    if (language == core::Language::Spanish) return runningStatus(counts, language);
    return joined(" Folders : ", " Files : ", counts);
}

}  // namespace scan
