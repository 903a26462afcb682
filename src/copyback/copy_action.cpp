#include "copyback/copy_action.h"

#include <QFile>
#include <optional>

#include "copyback/copy_run.h"
#include "core/failure.h"
#include "frame/messages.h"
#include "frame/pointer.h"
#include "frame/status_band.h"

namespace copyback {
namespace {

using platform::FileError;

constexpr core::Bilingual chooserTitle{"Seleccione los archivos a copiar.", "Select the files to copy."};
constexpr core::Bilingual unfinished{"  Copia sin terminar. Archivos copiados: ",
                                     "  Copying not finished. Files copied: "};

class ListReader : public ItemReader {
  public:
    explicit ListReader(const lists::ItemList& list) : m_list(list) {}

    int count() const override { return m_list.count(); }
    bool isSelected(int position) const override { return m_list.isSelected(position); }
    Item item(int position) const override {
        return {m_list.text(position).toStdString(),
                m_list.subItem(position, lists::SubItem::Type).toStdString(),
                m_list.subItem(position, lists::SubItem::Disco).toStdString(),
                m_list.subItem(position, lists::SubItem::Ruta).toStdString()};
    }

  private:
    const lists::ItemList& m_list;
};

std::string chosenFolder(frame::Frame& frame) {
    const QString chosen = frame.dialogs.chooseFolder(platform::qtext(chooserTitle.in(frame.idioma)));
    return QFile::encodeName(chosen).toStdString();
}

// Remembers what became of the copies.
struct Copies {
    int done = 0;
    std::optional<FileError> failure;

    platform::FileResult<> make(const std::string& source, const std::string& destination) {
        auto copied = platform::CopyFile(source, destination);
        if (copied)
            ++done;
        else
            failure = copied.error();
        return copied;
    }
};

// A run that ends early has told some reasons in a box, and never how far it came.
std::string unfinishedText(const Copies& copies, core::Language idioma) {
    std::string text(unfinished.in(idioma));
    text += std::to_string(copies.done);
    const int number = copies.failure ? copies.failure->number : FileError::pathNotFound;
    if (number == FileError::pathNotFound || number == FileError::permissionDenied) return text;
    const bool isFull = number == FileError::diskFull;
    const engine::Error failure{isFull ? engine::error::diskFull : engine::error::general, {}};
    return text.append(". ").append(core::failureSentence(failure, idioma));
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
    Copies copies;
    const CopyPorts ports{drives, frame::tellThrough(frame.messages),
                          [&](const std::string& source, const std::string& destination) {
                              return copies.make(source, destination);
                          }};
    if (copyFiles(request, ports) == RunEnd::Complete) return true;
    frame.status.setText(unfinishedText(copies, frame.idioma));
    return false;
}

}  // namespace copyback
