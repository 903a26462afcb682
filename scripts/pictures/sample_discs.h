#pragma once

#include <string>

#include "core/language.h"

// Writes the files of two discs into empty folders: holiday photographs and home music. The files have names
// in that language, sizes and dates, but no content.
void writePhotoDisc(const std::string& folder, core::Language language);
void writeMusicDisc(const std::string& folder, core::Language language);
