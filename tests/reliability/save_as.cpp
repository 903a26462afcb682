// Saves a catalogue under another name as the window does: save_as CATALOGUE NEW_NAME

#include "core/catalogue_file.h"

int main(int argc, char** argv) {
    return argc == 3 && core::copyCatalogue(argv[1], argv[2]) ? 0 : 1;
}
