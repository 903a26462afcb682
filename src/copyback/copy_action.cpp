#include "copyback/copy_action.h"

#include <QFile>

#include "copyback/copy_run.h"
#include "frame/pointer.h"
#include "frame/tell.h"

namespace copyback {
namespace {

constexpr core::Bilingual chooserTitle{"Seleccione los archivos a copiar.", "Select the files to copy."};

class ListReader : public ItemReader {
  public:
    explicit ListReader(const lists::ItemList& list) : m_list(list) {}

    int count() const override { return m_list.count(); }
    bool isSelected(int position) const override { return m_list.isSelected(position); }
    Item item(int position) const override {
        return {m_list.text(position).toStdString(), m_list.subItem(position, 2).toStdString(),
                m_list.subItem(position, 8).toStdString(), m_list.subItem(position, 9).toStdString()};
    }

  private:
    const lists::ItemList& m_list;
};

std::string chosenFolder(frame::Frame& frame) {
    const QString chosen = frame.dialogs.chooseFolder(controls::qtext(chooserTitle.in(frame.idioma)));
    return QFile::encodeName(chosen).toStdString();
}

platform::FileResult<> copy(const std::string& source, const std::string& destination) {
    return platform::CopyFile(source, destination);
}

}  // namespace

void Copiararchivos(browse::Surface& surface, const core::DriveSource& drives) {
    const frame::Hourglass hourglass;
    const ListReader listView1(surface.lists.listView1);
    const ListReader listView2(surface.lists.listView2);
    const CopyRequest request{.listView1 = listView1,
                              .listView2 = listView2,
                              .searchShown = surface.lists.searchShown(),
                              .indicefila = surface.clic.indicefila,
                              .carpetadestino = chosenFolder(surface.frame),
                              .idioma = surface.frame.idioma};
    const CopyPorts ports{drives, frame::tellThrough(surface.frame.messages), copy};
    if (copyFiles(request, ports) == RunEnd::Complete) surface.treeView1.setFocus();
}

}  // namespace copyback
