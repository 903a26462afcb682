#include "shell/toolkit_words.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <string_view>

namespace shell {
namespace {

struct Words {
    std::string_view english;
    const char* spanish;
};

// What the dialogs for printing and for files say and the toolkit's own translation lacks.
constexpr Words missing[] = {
    {"Pages", "Páginas"},
    {"Advanced", "Avanzado"},
    {"Off", "Desactivada"},
    {"Double Sided Printing", "Impresión a doble cara"},
    {"Long side binding", "Encuadernar por el lado largo"},
    {"Short side binding", "Encuadernar por el lado corto"},
    {"Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a "
     "hyphen. "
     "E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
     "Indique páginas o intervalos separados por comas. Un intervalo son dos números separados por un guion. "
     "Por ejemplo, 3,5-7,9 imprime las páginas 3, 5, 6, 7 y 9."},
    {"Invalid Pages Definition", "Páginas mal indicadas"},
    {"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define "
     "ranges "
     "and make sure ranges do not intersect with each other.",
     "%1 no está bien escrito. Separe las páginas y los intervalos con ',', escriba los intervalos con '-' y "
     "cuide de que no se solapen."},
    {"There are conflicts in some options. Please fix them.", "Algunas opciones no casan. Corríjalas."},
    {"Duplex Settings Conflicts", "La doble cara no casa con otras opciones"},
    {"There are conflicts in duplex settings. Do you want to fix them?",
     "La doble cara no casa con otras opciones. ¿Desea corregirlo?"},
    {"Page Setup Conflicts", "La página no casa con otras opciones"},
    {"There are conflicts in page setup options. Do you want to fix them?",
     "La página no casa con otras opciones. ¿Desea corregirlo?"},
    {"Advanced Option Conflicts", "Opciones avanzadas que no casan"},
    {"There are conflicts in some advanced options. Do you want to fix them?",
     "Algunas opciones avanzadas no casan. ¿Desea corregirlas?"},
    {"Options 'Pages Per Sheet' and 'Page Set' cannot be used together.\nPlease turn one of those options "
     "off.",
     "Las opciones «Páginas por hoja» y «Set de páginas» no pueden usarse a la vez.\nDesactive una de "
     "ellas."},
    {"Folder", "Carpeta"},
    {"File", "Archivo"},
    {"Drive", "Unidad"},
    {"Authentication Needed", "Hace falta identificarse"},
    {"Authentication needed to use %1.", "Para usar %1 hace falta identificarse."},
    {"Authentication needed to use %1 on %2.", "Para usar %1 en %2 hace falta identificarse."},
};

class MissingWords : public QTranslator {
  public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char*, const char* source, const char*, int) const override {
        for (const Words& words : missing)
            if (words.english == source) return QString::fromUtf8(words.spanish);
        return {};
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

}  // namespace

void translateToolkit(core::Language idioma) {
    if (idioma != core::Language::Spanish) return;
    // The one that was installed last is asked first.
    QCoreApplication::installTranslator(new MissingWords(qApp));
    auto* words = new QTranslator(qApp);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (words->load(QLocale(QLocale::Spanish), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(words);
}

}  // namespace shell
