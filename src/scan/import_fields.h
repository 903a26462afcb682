#pragma once

#include <string>

class QLineEdit;
class QWidget;

namespace controls {
class ImageCombo;
}

namespace scan {

struct UnitRefusal;

// The import panel's controls, as the job behind its button reads and writes them.
struct ImportFields {
    QWidget& directoryPane;             // Picture13(0)
    QLineEdit& Text3;                   // the unit's name
    QLineEdit& Text4;                   // the directory as shown
    QLineEdit& Text11;                  // the content of a hand-made unit
    controls::ImageCombo& ImageCombo4;  // its kind
    std::string& directory;             // the chosen directory's native path
};

}  // namespace scan
