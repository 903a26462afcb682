#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QSettings>
#include <filesystem>

#include "platform/command_line.h"
#include "platform/settings.h"
#include "support/opened_files.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

std::string lineOf(const char* argument) {
    const char* const argv[] = {"zarquelin", argument};
    return platform::commandLine(2, argv);
}

TEST(CommandLine, IsTheArgumentBetweenQuotes) {
    const std::string here = fs::current_path();
    const char* const alone[] = {"zarquelin"};
    EXPECT_EQ(platform::commandLine(1, alone), "");
    EXPECT_EQ(lineOf(""), "");
    EXPECT_EQ(lineOf("/a b/c.zrq"), "\"/a b/c.zrq\"");
    EXPECT_EQ(lineOf("\"/a b/c.zrq\""), "\"/a b/c.zrq\"") << "quoted once, by whomever";
    EXPECT_EQ(lineOf("c.zrq"), '"' + here + "/c.zrq\"");
    EXPECT_EQ(lineOf("./c.zrq"), '"' + here + "/c.zrq\"");
    EXPECT_EQ(lineOf("/a/../c.zrq"), "\"/a/../c.zrq\"") << "a may be a link";
    EXPECT_EQ(lineOf("file:///a%20b/%C3%B1%ff%2.zrq"), "\"/a b/ñ\xff%2.zrq\"");
    EXPECT_EQ(lineOf("file://localhost/c.zrq"), "\"/c.zrq\"");
}

TEST(CommandLine, IsCutBlindly) {
    const std::pair<std::string, std::string> cuts[]{
        {"\"/c.zrq\"", "/c.zrq"}, {"word", "or"}, {"ñandú", "and"}, {"ab", ""}, {"a", ""}, {"", ""}};
    for (const auto& [line, path] : cuts) EXPECT_EQ(platform::pathInCommandLine(line), path);
}

TEST(Settings, ValuesStayAcrossRuns) {
    const test::TemporaryFolder folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(folder.path()));
    EXPECT_EQ(platform::GetSetting("idioma"), "");
    const std::string odd = "/home/ana/a\\b;\"caf\xE9\" = #1, ñ.zrq";
    for (const std::string& value : {std::string("Español"), std::string("@Invalid()"), odd, std::string()}) {
        platform::SaveSetting("lastfile", value);
        EXPECT_EQ(platform::GetSetting("lastfile"), value);
    }
    platform::SaveSetting("idioma", "English");
    const std::string stored = readFile(folder / "zarquelin/zarquelin.ini");
    EXPECT_NE(stored.find("[inicio]\n"), std::string::npos);
    EXPECT_NE(stored.find("idioma=English\n"), std::string::npos);
}

TEST(Settings, AnUnwritableStoreKeepsValuesForTheRun) {
    const test::TemporaryFolder folder;
    writeFile(folder / "file", "");
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(folder / "file"));
    platform::SaveSetting("iniciorapido", "si");
    EXPECT_EQ(platform::GetSetting("iniciorapido"), "si");
}

TEST(ShellOpen, LinkFilesAreOpenedByTheirAddress) {
    const test::TemporaryFolder folder;
    const test::OpenedFiles opened;
    writeFile(folder / "site.URL", "[InternetShortcut]\r\nURL=https://example.org/?a=b\r\nIconIndex=0\r\n");
    writeFile(folder / "empty.url", "[InternetShortcut]\nURL=\n");
    EXPECT_TRUE(platform::ShellExecute(folder / "site.URL", ""));
    EXPECT_FALSE(platform::ShellExecute(folder / "empty.url", ""));
    writeFile(folder / "film.url", std::string(1'000'000, 'x') + "\nURL=https://example.org\n");
    EXPECT_FALSE(platform::ShellExecute(folder / "film.url", ""))
        << "whatever its size, it is not read whole";
    EXPECT_EQ(opened.targets, std::vector<std::string>{"https://example.org/?a=b"});
}

TEST(ShellOpen, NoFileLeadsElsewhereOrStartsAProgram) {
    const test::TemporaryFolder folder;
    const test::OpenedFiles opened;
    for (const char* url : {"file:///etc/passwd", "run.desktop", "/bin/sh", "javascript:alert(1)",
                            "smb://x/y", "http:", "-x"}) {
        writeFile(folder / "a.url", "[InternetShortcut]\nURL=" + std::string(url) + "\n");
        EXPECT_FALSE(platform::ShellExecute(folder / "a.url", "")) << url;
    }
    const std::string entry = "[Desktop Entry]\nType=Application\nExec=touch /tmp/x\n";
    writeFile(folder / "run.Desktop", "");
    writeFile(folder / "photo", "\n" + entry);
    for (const char* name : {"run.Desktop", "photo"})
        EXPECT_FALSE(platform::ShellExecute(folder / name, "")) << name;
    EXPECT_TRUE(opened.targets.empty());
    writeFile(folder / "b.url", "URL=HTTPS://example.org\n");
    EXPECT_TRUE(platform::ShellExecute(folder / "b.url", ""));
}

TEST(ShellOpen, TheDesktopsProgramGetsTheExactNameAndFolder) {
    const test::TemporaryFolder folder;
    const std::string path = ::getenv("PATH");
    ::setenv("PATH", folder.path().c_str(), 1);
    EXPECT_FALSE(platform::ShellExecute("/x", folder.path())) << "no such program";
    // The pipe makes the reading below wait for the program.
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    writeFile(folder / "xdg-open", "#!/bin/sh\nprintf '%s|%s' \"$PWD\" \"$1\" > pipe\n");
    fs::permissions(folder / "xdg-open", fs::perms::owner_all);
    EXPECT_TRUE(platform::ShellExecute("/odd \xE9 'name'", folder.path()));
    EXPECT_EQ(readFile(folder / "pipe"), folder.path() + "|/odd \xE9 'name'");
    ::setenv("PATH", path.c_str(), 1);
    EXPECT_FALSE(platform::ShellExecute("-option", ""));
}

}  // namespace
