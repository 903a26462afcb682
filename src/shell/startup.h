#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/language.h"

namespace shell {

class Form2;
class Form5;
class Form8;

// What the start-up asks of the main window. The last three stand in its menus too.
class MainEntry {
  public:
    virtual ~MainEntry() = default;
    // Loads and shows the window, and opens the catalogue of the command line unless the path is empty.
    virtual void begin(const std::string& catalogue) = 0;
    // Shows the import panel with this folder chosen, in a new catalogue if none is open.
    virtual void importFolder(const std::string& folder) = 0;
    virtual void recentIsMissing() = 0;  // there is no last file to go back to: disables `reciente`
    virtual void nuevo1() = 0;
    virtual void abrir1() = 0;
    virtual void reciente1() = 0;
};

// The chain of windows from the start of the program to the main window: the language chooser on a first
// start, the splash, the main window and, if the user wants it and names no catalogue, the quick start. Owns
// them all.
class Startup : public QObject {
    Q_OBJECT
  public:
    using MakeMain = std::function<std::unique_ptr<MainEntry>(core::Language idioma)>;

    // `commandLine` is one path between double quotes, or empty: a catalogue, or a folder to be imported into
    // the one that was open last.
    Startup(std::string_view commandLine, MakeMain makeMain);
    ~Startup() override;

    void begin();
    void showAbout();  // `acerca`

    // Null until the chain has come to it.
    [[nodiscard]] Form5* languageChooser() const { return m_chooser.get(); }
    [[nodiscard]] Form2* splash() const { return m_splash.get(); }
    [[nodiscard]] Form8* quickStart() const { return m_quickStart.get(); }

  private:
    void takeLanguage();
    void showSplash();
    void endSplash();
    void showQuickStart();

    std::string m_catalogue;  // of the command line
    std::string m_folder;     // or this
    MakeMain m_makeMain;
    core::Language m_idioma = core::Language::English;
    std::unique_ptr<Form5> m_chooser;
    std::unique_ptr<Form2> m_splash;
    std::unique_ptr<MainEntry> m_main;
    std::unique_ptr<Form8> m_quickStart;
};

// Ends the program: closes every window, the hidden ones too, and leaves the event loop. Nothing needs
// saving.
void salida();

}  // namespace shell
