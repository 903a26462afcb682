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

bool Copiararchivos(frame::Frame& frame, const lists::Lists& lists, const lists::ClickedRow& clic,
                    const core::DriveSource& drives) {
    const std::string folder = chosenFolder(frame);
    const frame::Hourglass hourglass;
    const ListReader listView1(lists.listView1);
    const ListReader listView2(lists.listView2);
    const CopyRequest request{.listView1 = listView1,
                              .listView2 = listView2,
                              .searchShown = lists.searchShown(),
                              .indicefila = clic.indicefila,
                              .carpetadestino = folder,
                              .idioma = frame.idioma};
    const CopyPorts ports{drives, frame::tellThrough(frame.messages), copy};
    return copyFiles(request, ports) == RunEnd::Complete;
}

}  // namespace copyback
