#include <QUtf8StringView>
#include <algorithm>
#include <ranges>

#include "core/path_readings.h"
#include "platform/mount_table.h"
#include "platform/names.h"
#include "support/fuzz.h"

// Paths as a disk has them, as a stranger's catalogue may hold them and as a person may type them: any name
// comes back as it was, and nothing leads out of a drive.

namespace {

const test::Parts pieces = test::parts(
    "/|/|\\|\\|.|..|C:|d:|:|E|mnt|a|a "
    "b|ñ|'|´|\n|*|\xff|\xc3|\xef|\uF02F|\uF02E|\uF05C|\uF0C3|\uF000|\xed\xa0\x80|😀|"
    "\xf4\x90");
const test::Parts drivePieces =
    test::parts("C=/;|D=/mnt;|E=/mnt/a,optical;|=|;|,|/|,absent;|e|Z|mnt|G=/mnt//");
const test::Parts mountPieces = test::parts(
    "22 27 8:1 / /mnt rw|23 27 8:2 / / rw shared:1| - ext4 /dev/x rw\n| - nfs4 nas:/ rw\n|"
    "9 9 8:3 /part /odd\\040name rw|\\|\\13|\\000| | - |\n|:|1|/");

std::vector<std::string> componentsOf(std::string_view path, char separator) {
    std::vector<std::string> components;
    for (const auto part : std::views::split(path, separator))
        if (!part.empty()) components.emplace_back(part.begin(), part.end());
    return components;
}

bool navigates(std::string_view path) {
    return std::ranges::any_of(componentsOf(path, '/'),
                               [](const std::string& name) { return name == "." || name == ".."; });
}

bool nameComesBack(const std::string& name) {
    const std::string stored = platform::toStoredName(name);
    return platform::toDiskName(stored) == name && stored.find('\\') == stored.npos &&
           QUtf8StringView(stored.data(), std::ssize(stored)).isValidUtf8();
}

bool pathComesBack(const platform::Drives& drives, const std::string& native) {
    const std::string drivePath = drives.toDrivePath(native);
    const auto back = drives.toNativePath(drivePath);
    if (navigates(native)) return !back;
    return back && componentsOf(*back, '/') == componentsOf(native, '/');
}

bool staysInItsDrive(const platform::Drives& drives, const std::string& drivePath) {
    const auto native = drives.toNativePath(drivePath);
    if (!native) return true;
    const auto names = componentsOf(std::string_view(drivePath).substr(2), '\\').size();
    const auto drive = std::ranges::find(drives.list(), drivePath[0] & ~0x20, &platform::Drive::letter);
    return native->starts_with(drive->mountPoint) && !navigates(*native) &&
           native->find('\0') == native->npos &&
           componentsOf(*native, '/').size() == componentsOf(drive->mountPoint, '/').size() + names &&
           drives.toNativePath(drives.toDrivePath(*native)) == native;
}

bool isReadRightly(const platform::Drives& drives, const std::string& typed) {
    const auto readings = core::readingsOf(typed, drives);
    std::string own = drives.toDrivePath(typed);
    if (own.ends_with('\\')) own.pop_back();
    const auto means = [&](bool relative, const std::string& path) {
        return std::ranges::any_of(readings, [&](const core::PathReading& reading) {
            return reading.relative == relative && reading.path == path;
        });
    };
    if (!typed.starts_with('/') && componentsOf(typed, '/').size() == 1 && typed != "." &&
        !typed.ends_with('/') && !means(true, platform::toStoredName(typed)))
        return false;
    if (typed.starts_with('/') && !navigates(typed) && !own.empty() && !means(false, own)) return false;
    return std::ranges::none_of(readings, [](const core::PathReading& reading) {
        return reading.path.starts_with('\\') || reading.path.ends_with('\\');
    });
}

bool haveLettersOfTheirOwn(const std::vector<platform::Drive>& drives) {
    std::string letters;
    for (const platform::Drive& drive : drives) {
        const bool valid = drive.mountPoint.empty() || drive.mountPoint.starts_with('/');
        if (!valid || drive.letter < 'A' || drive.letter > 'Z' || letters.find(drive.letter) != letters.npos)
            return false;
        letters += drive.letter;
    }
    return true;
}

struct PathsComeBackAndLeadOutOfNoDrive : test::Fuzz {
    void round(test::Random& random) {
        std::string text = test::randomText(random, pieces, 8);
        test::spoil(text, random);
        std::erase(text, '\0');
        const auto parsed = platform::Drives::parse(test::randomText(random, drivePieces, 6));
        const auto& drives = random(4) == 0 ? parsed : usual;
        const auto mounted =
            assignLetters(platform::parseMountInfo(test::randomText(random, mountPieces, 9)), probe);
        std::string hostile = "CDEFc"[random(5)] + (":" + text);
        if (random(8) == 0) hostile.insert(2 + random(hostile.size() - 1), 1, '\0');
        std::string name = text;
        std::erase(name, '/');
        ASSERT_TRUE(nameComesBack(name)) << name;
        ASSERT_TRUE(pathComesBack(usual, '/' + text)) << text;
        ASSERT_TRUE(staysInItsDrive(drives, hostile)) << hostile;
        ASSERT_TRUE(isReadRightly(usual, text) && isReadRightly(usual, '/' + text)) << text;
        ASSERT_TRUE(haveLettersOfTheirOwn(parsed.list()) && haveLettersOfTheirOwn(mounted)) << text;
        if (drives.toNativePath(hostile)) ++useful;
    }

    const platform::Drives usual = platform::Drives::parse("C=/;D=/mnt;E=/mnt/a,optical;F=,optical");
    const platform::MountProbe probe{[](const std::string&) { return true; },
                                     [](const platform::Mount&) { return platform::DriveType::Fixed; }};
};
FUZZED(PathsComeBackAndLeadOutOfNoDrive, 20'000)

}  // namespace
