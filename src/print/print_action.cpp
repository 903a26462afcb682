#include "print/print_action.h"

#include <QFile>
#include <QFileInfo>
#include <QPrinter>

#include "frame/catalogue.h"
#include "frame/dialogs.h"
#include "frame/frame.h"
#include "frame/long_work.h"
#include "frame/print_job.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "lists/item_list.h"
#include "print/list_printer.h"

namespace print {
namespace {

constexpr core::Bilingual notPrinted{"  No se pudo imprimir todo.", "  Not everything could be printed."};
constexpr core::Bilingual printing{"  Imprimiendo ...", "  Printing ..."};

class ListRows : public RowSource {
  public:
    explicit ListRows(const lists::ItemStore& store) : m_store(store) {}
    [[nodiscard]] std::int64_t count() const override { return static_cast<std::int64_t>(m_store.size()); }
    [[nodiscard]] ReportRow row(std::int64_t position) const override {
        const auto at = static_cast<std::size_t>(position);
        return {std::string{m_store.text(at)}, m_store.subItem(at, lists::SubItem::Type),
                m_store.subItem(at, lists::SubItem::Size), m_store.subItem(at, lists::SubItem::Date),
                m_store.smallPicture(at)};
    }

  private:
    const lists::ItemStore& m_store;
};

}  // namespace

void Imprimir1(frame::Frame& frame, const lists::Lists& lists) {
    frame.toolbar.releaseAll(frame::Toolbar::New, frame::Toolbar::Stop);
    const ListRows rows(lists.shown().store());
    if (rows.count() == 0) return;

    QPrinter printer(QPrinter::HighResolution);
    const QFileInfo catalogue(QFile::decodeName(frame.catalogue.path().c_str()));
    printer.setDocName(QStringLiteral("Zarquelin - ") + catalogue.fileName());
    const auto copies = frame.dialogs.print(printer);
    if (!copies) return;
    const bool whole = [&] {
        const frame::LongWork work(frame, printing);
        return frame::printCopies(printer, *copies, [&](QPainter& painter, QPrinter& target) {
            return printList(painter, target, rows, frame.idioma);
        });
    }();
    if (!whole) frame.status.setText(std::string(notPrinted.in(frame.idioma)));
}

}  // namespace print
