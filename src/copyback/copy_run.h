#pragma once

#include <functional>
#include <string>

#include "core/medium.h"
#include "platform/files.h"

namespace copyback {

// One item of a list, as displayed.
struct Item {
    std::string text;
    std::string type;
    std::string disco;
    std::string ruta;
};

// The items of a list by position, from 0.
class ItemReader {
  public:
    virtual ~ItemReader() = default;
    [[nodiscard]] virtual int count() const = 0;
    [[nodiscard]] virtual bool isSelected(int position) const = 0;
    [[nodiscard]] virtual Item item(int position) const = 0;
};

struct CopyRequest {
    const ItemReader& listView1;
    const ItemReader& listView2;
    bool searchShown = false;    // the walk goes over ListView2
    int indicefila = -1;         // below zero nothing is treated
    std::string carpetadestino;  // native; empty stands for the root folder
    core::Language idioma = core::Language::Spanish;
};

// What a run asks of the world outside. `copy` takes native paths.
struct CopyPorts {
    core::DriveSource drives;
    core::Tell tell;
    std::function<platform::FileResult<>(const std::string& source, const std::string& destination)> copy;
};

enum class RunEnd {
    Complete,  // every selected item had its turn; missing files were told one by one
    Folder,    // a folder was among them
    Failed,    // a copy failed
    Broken,    // a walk of ListView1 strayed to where ListView2 has no item, see below
};

// Copies the selected files to a folder, from the last item to the first. What was copied stays copied,
// however the run ends.
//
// After a file of ListView1 that is found in another drive than its own the item of ListView2 at the same
// index has a turn, if it is selected; then the walk goes on in ListView1. Without such an item the run ends
// there, in silence.
RunEnd copyFiles(const CopyRequest& request, const CopyPorts& ports);

}  // namespace copyback
