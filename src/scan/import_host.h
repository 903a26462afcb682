#pragma once

#include <QString>

class QWidget;

namespace scan {

// What the import panel asks of the main window around it.
class ImportHost {
  public:
    virtual ~ImportHost() = default;

    virtual void placeOverTree(QWidget& panel) = 0;  // gives it the position and size of TreeView1
    virtual void hidePicture1() = 0;                 // the search panel
    virtual void hideListView2() = 0;
    virtual void clearListView1() = 0;
    virtual void clearListView2() = 0;
    virtual void clearTreeView1() = 0;
    virtual void clearImageCombos() = 0;  // the items of ImageCombo1 to ImageCombo3

    // A new unit: a node of TreeView1 (with that key, if any), an item behind the last one of ImageCombo1 and
    // one of ImageCombo3. The count of ImageCombo1 is remembered as that of its units, and its last item
    // selected.
    virtual void addUnit(const QString& text, int picture, const QString& key) = 0;
    [[nodiscard]] virtual int imageCombo1Count() const = 0;

    virtual void actualizar() = 0;
    virtual void explorar1() = 0;
    virtual void reciente1() = 0;
};

}  // namespace scan
