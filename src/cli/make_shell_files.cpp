// make_shell_files bash|zsh|fish|man TEMPLATE FILE: writes a completion or the manual page.

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "cli/shell_files.h"

int main(int argc, char** argv) {
    const std::map<std::string, std::string (*)(std::string)> kinds{{"bash", cli::bashCompletion},
                                                                    {"zsh", cli::zshCompletion},
                                                                    {"fish", cli::fishCompletion},
                                                                    {"man", cli::manualPage}};
    const auto kind = kinds.find(argc == 4 ? argv[1] : "");
    if (kind == kinds.end()) return EXIT_FAILURE;
    std::ifstream source(argv[2]);
    std::string text(std::istreambuf_iterator<char>(source), {});
    std::ofstream target(argv[3]);
    const bool written = source.is_open() && (target << kind->second(std::move(text))).flush();
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
