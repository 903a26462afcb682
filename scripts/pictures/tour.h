#pragma once

#include <string>

#include "core/language.h"

struct TourFolders {
    std::string photoDisc;
    std::string musicDisc;
    std::string catalogue;  // to be made
    std::string pictures;   // where NAME.png go
    bool asOnScreen;        // the main window as large as it comes up
    bool big;               // with the biggest letters
};

// Goes the road of a first-time user through the real windows, by their controls, and takes the pictures of
// the manual on the way. False when one of them could not be written.
[[nodiscard]] bool goOnTour(const TourFolders& folders, core::Language language);
