#include "shell/application.h"

#include <QMessageBox>
#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <system_error>

#include "core/first_use.h"
#include "core/language.h"
#include "platform/settings.h"

namespace shell {
namespace {

constexpr core::Bilingual noMemory{"No hay memoria suficiente para esta acción.",
                                   "There is not enough memory for this action."};

// Given back when memory runs out, so that there is some to say so.
std::unique_ptr<char[]>& reserve() {
    constexpr std::size_t size = std::size_t{1} << 20;
    static std::unique_ptr<char[]> memory(new char[size]);
    return memory;
}

void tellThatItFailed() {
    reserve().reset();
    try {
        const auto language = core::languageOf(platform::GetSetting("idioma"));
        const std::string_view text = noMemory.in(language);
        QMessageBox::warning(nullptr, QStringLiteral("zarquelin"),
                             QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    } catch (const std::bad_alloc&) {
        std::fputs("zarquelin: not enough memory\n", stderr);
    }
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    (void)reserve();
    core::loadLibraryTables();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        tellThatItFailed();
    } catch (const std::system_error&) {  // no thread
        tellThatItFailed();
    }
    return true;
}

}  // namespace shell
