#include "copyback/copy_action.h"

#include <gtest/gtest.h>

#include "support/browse_window.h"

namespace {

using core::Language;

TEST(CopyAction, CopiesTheSelectedFilesOfTheShownList) {
    for (const Language idioma : {Language::Spanish, Language::English}) {
        const bool spanish = idioma == Language::Spanish;
        test::BrowseWindow window(idioma);
        window.discs.write("disk", "docs/it's.txt", "bytes");
        window.scan("Docs", window.discs.disc("disk") + "/docs");
        window.browse("Docs");
        window.window.show();
        window.window.activateWindow();
        window.list1.select(0);
        window.surface.clic.indicefila = 0;

        const std::string target = window.discs.disc("tárget");
        window.dialogs.answers = {QString::fromStdString(target)};
        copyback::Copiararchivos(window.surface, [&] { return window.discs(); });
        EXPECT_EQ(window.dialogs.titles.front(), spanish ? QString("Seleccione los archivos a copiar.")
                                                         : QString("Select the files to copy."));
        EXPECT_EQ(test::readFile(target + "/it's.txt"), "bytes");
        ASSERT_EQ(window.messages.shown.size(), 1u);
        EXPECT_EQ(window.messages.shown[0].style, shell::MessageStyle::Information);
        EXPECT_EQ(window.window.focusWidget(), &window.tree);

        // With the search list over it, the selection of the browse list does not count.
        window.list2.show();
        std::filesystem::remove(target + "/it's.txt");
        window.dialogs.answers = {QString::fromStdString(target)};
        copyback::Copiararchivos(window.surface, [&] { return window.discs(); });
        EXPECT_FALSE(std::filesystem::exists(target + "/it's.txt"));
        EXPECT_EQ(window.messages.shown.size(), 2u);
    }
}

}  // namespace
