#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "reliability/program.h"
#include "support/catalogue_fixture.h"
#include "support/temporary_folder.h"

namespace {

// What the program says of itself: its commands, and the options of each.
class Help : public testing::Test {
  protected:
    // The first words of the lines that begin so.
    static std::vector<std::string> wordsBehind(const std::string& text, const std::string& begin) {
        std::vector<std::string> words;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with(begin))
                words.push_back(line.substr(begin.size(), line.find(' ', begin.size()) - begin.size()));
        return words;
    }
    static std::vector<std::string> commands() {
        return wordsBehind(test::cliTells({"--help"}).text, "zarquelin-cli ");
    }
    static std::vector<std::string> optionsOf(const std::string& command) {
        auto options = wordsBehind(test::cliTells({command, "--help"}).text, "  -");
        for (std::string& option : options) option.insert(0, "-");
        return options;
    }
    static std::string file(const std::string& name) { return test::readFile(SHELL_FILES "/" + name); }

    // The lines from one that holds `from` to the next one that holds `to`.
    static std::string section(const std::string& text, const std::string& from, const std::string& to) {
        const std::size_t begin = text.find(from);
        if (begin == text.npos) return {};
        return text.substr(begin, text.find(to, begin + from.size()) - begin);
    }
};

TEST_F(Help, IsWhatTheManualPageAndTheCompletionsTell) {
    const std::string man = file("zarquelin-cli.1"), bash = file("zarquelin-cli.bash");
    const std::string zsh = file("_zarquelin-cli"), fish = file("zarquelin-cli.fish");
    for (const std::string& text : {file("zarquelin-cli.bash"), zsh, fish})
        EXPECT_FALSE(text.contains("eval")) << "a name of a catalogue is never run as a command";
    EXPECT_GT(commands().size(), 15);
    EXPECT_FALSE(man.contains('%')) << "a command of the page is none of the program";
    for (const std::string& command : commands()) {
        const std::string ofMan = section(man, "\n\\fB" + command + " ", "\n\\fB");
        const std::string options = section(bash.substr(bash.find("_options=")), "[" + command + "]='", "\n");
        const std::string ofZsh = section(zsh, "\n        " + command + ")", ";;");
        EXPECT_FALSE(ofMan.empty()) << command;
        EXPECT_TRUE(bash.contains("[" + command + "]='")) << command;
        EXPECT_FALSE(ofZsh.empty()) << command;
        EXPECT_TRUE(fish.contains("-a " + command + " -d")) << command;
        for (const std::string& option : optionsOf(command)) {
            std::string roff = option;
            for (std::size_t at = 0; (at = roff.find('-', at)) != roff.npos; at += 2) roff.insert(at, "\\");
            EXPECT_NE(man.find(roff), man.rfind(roff)) << "explained nowhere: " << command << ' ' << option;
            EXPECT_TRUE(ofMan.contains(roff)) << command << ' ' << option;
            EXPECT_TRUE((options + ' ').find(option) != options.npos) << command << ' ' << option;
            EXPECT_TRUE(ofZsh.contains(option + '[')) << command << ' ' << option;
            const std::string spelled =
                option.starts_with("--") ? "-l " + option.substr(2) : "-s " + option.substr(1);
            EXPECT_TRUE(fish.contains("_from " + command + "' " + spelled + ' ')) << command << ' ' << option;
        }
    }
}

TEST_F(Help, CompletionsAreSoundForTheirShells) {
    for (const auto& [shell, name] : {std::pair{"bash", "zarquelin-cli.bash"},
                                      {"zsh", "_zarquelin-cli"},
                                      {"fish", "zarquelin-cli.fish"}}) {
        const std::string check =
            std::string("! command -v ") + shell + " || " + shell + " -n " SHELL_FILES "/" + name;
        EXPECT_EQ(test::statusOf({"/bin/sh", "-c", check}, {}), 0) << shell;
    }
}

TEST_F(Help, BashCompletesWhatACatalogueHolds) {
    const test::CatalogueFixture catalogue;
    catalogue.add({test::folderRow("My disc :", "E:\\letters [2004]"),
                   test::fileRow("My disc :", "E:\\letters [2004]", "it´s.txt"),
                   test::fileRow("My disc :", "E:\\", "let it be.mp3"),
                   test::unitRow("$(x): y :", "a", "x")});
    const test::TemporaryFolder folder;
    const auto completed = [&](const std::string& line) {
        const std::string script =
            "_init_completion() { words=(\"${COMP_WORDS[@]}\") cword=$((${#words[@]} - 1))\n"
            "cur=${words[cword]} prev=${words[cword - 1]}; }; _filedir() { COMPREPLY+=(a-file); }\n"
            "compopt() { :; }; zarquelin-cli() { " ZARQUELIN_CLI " \"$@\"; }; source " SHELL_FILES
            "/zarquelin-cli.bash\n"
            "COMP_WORDS=(zarquelin-cli " +
            line + "); _zarquelin_cli; printf '%s\\n' \"${COMPREPLY[@]}\"";
        EXPECT_EQ(test::statusOf({"/bin/bash", "-c", script}, {.output = folder / "told"}), 0);
        return test::readFile(folder / "told");
    };
    const std::string unit = catalogue.path + R"( '"My disc"' )";
    EXPECT_EQ(completed("list " + catalogue.path + " 'My'"), "My\\ disc\n");
    EXPECT_EQ(completed("search " + catalogue.path + " text --unit '\"My'"), "My disc\n") << "in its quotes";
    EXPECT_EQ(completed("list " + catalogue.path + R"( '"\$(')"), "\\$(x): y\n");
    EXPECT_EQ(completed("list " + catalogue.path + R"( '\$\(x\):')"), "\\ y\n") << "a new word for bash";
    EXPECT_EQ(completed("list " + unit + "'let'"), "letters\\ \\[2004\\]/\nlet\\ it\\ be.mp3\n");
    EXPECT_EQ(completed("note " + unit + R"('letters\ \[2004\]/')"), "letters\\ \\[2004\\]/it´s.txt\n");
    EXPECT_EQ(completed("note " + unit + "'gone'"), "a-file\n");
    EXPECT_EQ(completed("copy " + unit + "'letters' 'let i'"), "let\\ it\\ be.mp3\na-file\n");
}

TEST_F(Help, ZshFindsTheCatalogueInQuotesAndAtHome) {
    const test::CatalogueFixture catalogue;
    catalogue.add(test::unitRow("$(x) y :", "a", "x"));
    const std::string file = catalogue.path.substr(catalogue.path.rfind('/') + 1);
    const std::string script =
        "command -v zsh >/dev/null || exit 0; [ \"$(exec zsh -f -o extendedglob -c '"
        "_arguments() {}; zarquelin-cli() { " ZARQUELIN_CLI " \"$@\" }; source " SHELL_FILES
        "/_zarquelin-cli; compadd() { print -rn -- \"$units|\" }; for typed in \\~/" +
        file + " \\\"$HOME/" + file +
        "\\\"; do words=(units $typed); _zarquelin_units; done')\" = '$(x) y|$(x) y|' ]";
    EXPECT_EQ(test::statusOf({"/bin/sh", "-c", script}, {.environment = {"HOME=" + catalogue.folder.path()}}),
              0);
}

TEST_F(Help, FishCompletesInAFolderOfAnyName) {
    const test::CatalogueFixture catalogue;
    catalogue.add(
        {test::folderRow("My disc :", "E:\\$(x) $1"), test::fileRow("My disc :", "E:\\$(x) $1", "a b")});
    const test::TemporaryFolder folder;
    const std::string line = "LINE=zarquelin-cli note " + catalogue.path + R"( "My disc" \$\(x\)\ \$1/)";
    const std::string script =
        "command -v fish >/dev/null || exec echo '$(x) $1/a b'; PATH=${0%/*}:$PATH exec fish --no-config -c "
        "'source " SHELL_FILES "/zarquelin-cli.fish; complete -C $LINE'";
    EXPECT_EQ(test::statusOf({"/bin/sh", "-c", script, ZARQUELIN_CLI},
                             {.output = folder / "told", .environment = {line, "HOME=" + folder.path()}}),
              0);
    EXPECT_TRUE(test::readFile(folder / "told").contains("$(x) $1/a b\n")) << test::readFile(folder / "told");
}

}  // namespace
