#include <filesystem>
#include <string>
#include <system_error>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#ifdef ZARQUELIN_MOUNTS
#include "mount/session.h"
#endif

namespace cli {
namespace {

#ifdef ZARQUELIN_MOUNTS

namespace fs = std::filesystem;

constexpr core::Bilingual notAFolder{"no es una carpeta", "is no folder"};
constexpr core::Bilingual notEmpty{"no está vacía", "is not empty"};
constexpr core::Bilingual notMounted{"no se puede montar", "cannot be mounted"};
constexpr core::Bilingual leftBehind{"la dejó así un programa que terminó de golpe; fusermount3 -u la libera",
                                     "was left by a program that was killed; fusermount3 -u frees it"};

// Why a catalogue cannot be shown in the folder; empty when it can.
std::string refusalOf(const std::string& folder, core::Language language) {
    std::error_code failed;
    const fs::file_status status = fs::status(folder, failed);
    if (failed == std::errc::not_connected) return std::string(leftBehind.in(language));
    if (failed && status.type() != fs::file_type::not_found) return failed.message();
    if (!fs::is_directory(status)) return std::string(notAFolder.in(language));
    const bool empty = fs::is_empty(folder, failed);
    if (failed) return failed.message();
    return empty ? std::string() : std::string(notEmpty.in(language));
}

// A way to the catalogue through the folder itself ("../discs.zrq" in it) would be the mount's own to answer.
// The file's name stays, which may be a link that is set anew.
std::string besideTheMount(const std::string& catalogue) {
    std::error_code ignored;
    const fs::path path = fs::absolute(catalogue, ignored);
    return fs::canonical(path.parent_path(), ignored) / path.filename();
}

int runMount(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    if (!openCatalogue(operands[0], invocation.language, engine::Use::ReadOnly)) return UnusableCatalogue;
    if (const auto refusal = refusalOf(operands[1], invocation.language); !refusal.empty())
        return fail(WrongUsage, operands[1], refusal);
    std::error_code ignored;
    const mount::Session session{besideTheMount(operands[0]), fs::canonical(operands[1], ignored),
                                 invocation.arguments.has("-f")};
    if (const auto served = session.serve(); !served) {
        const std::string why = served.error().empty() ? "" : ": " + served.error();
        return fail(WrongUsage, operands[1], std::string(notMounted.in(invocation.language)) + why);
    }
    return Done;
}

#else

constexpr core::Bilingual leftOut{"este programa se compiló sin libfuse3, que \"mount\" necesita",
                                  "this program was built without libfuse3, which \"mount\" needs"};

int runMount(const Invocation& invocation) {
    return fail(WrongUsage, leftOut.in(invocation.language));
}

#endif

constexpr Option mountOptions[]{
    {"-f", "", {"se queda en primer plano", "stays in the foreground"}},
};

constexpr Command mountTable[]{
    {"mount",
     "CAT DIR",
     {"Muestra el catálogo en la carpeta DIR, de sólo lectura, hasta fusermount3 -u DIR.",
      "Shows the catalogue in the folder DIR, read-only, until fusermount3 -u DIR."},
     mountOptions,
     runMount},
};

}  // namespace

std::span<const Command> mountCommands() {
    return mountTable;
}

}  // namespace cli
