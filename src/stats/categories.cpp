#include "stats/categories.h"

namespace stats {
namespace {

constexpr std::string_view audio[] = {"*.mp3", "*.wav", "*.wma", "*.mid"};
constexpr std::string_view unitText[] = {"*.txt", "*.doc", "*.pdf", "*.nfo", "*.dat"};
constexpr std::string_view folderText[] = {"*.doc", "*.pdf", "*.nfo", "*.dat", "*.txt"};
constexpr std::string_view unitWeb[] = {"*.html", "*.htm", "*.mht"};
constexpr std::string_view folderWeb[] = {"*.mht", "*.html", "*.htm"};
constexpr std::string_view pictures[] = {"*.jpg", "*.bmp", "*.gif", "*.ico"};
constexpr std::string_view programs[] = {"*.exe"};
constexpr std::string_view unitVideos[] = {"*.avi", "*.mpge", "*.mpg", "*.mov*", "*.asf*"};
constexpr std::string_view folderVideos[] = {"*.avi", "*.mpge", "*.mpg", "*.mov", "*.asf"};
constexpr std::string_view zipped[] = {"*.zip", "*.rar", "*.rad"};

}  // namespace

const std::array<Category, categoryCount> categories{{
    {"audio", {"Audio:", "Audio files:"}, 7, audio, audio},
    {"text", {"Texto:", "Text files:"}, 11, unitText, folderText},
    {"web", {"Páginas web:", "Web files:"}, 12, unitWeb, folderWeb},
    {"pictures", {"Imágenes:", "Pictures:"}, 8, pictures, pictures},
    {"programs", {"Programas:", "Aplications:"}, 10, programs, programs},
    {"videos", {"Videos:", "Video files:"}, 9, unitVideos, folderVideos},
    {"zipped", {"Comprimidos:", "Zipped files:"}, 13, zipped, zipped},
    {"rest", {"Resto:", "Others:"}, 14, {}, {}},
}};

}  // namespace stats
