#include "shell/main_window_parts.h"

#include <QFile>

#include "controls/accessible.h"
#include "controls/twips.h"
#include "frame/captions.h"
#include "frame/pointer.h"
#include "platform/qtext.h"
#include "shell/main_window.h"

namespace shell {
namespace {

using controls::named;

constexpr core::Bilingual dividerName{"Divisor", "Divider"};

}  // namespace

WindowControls::WindowControls(Form1& window, core::Language idioma)
    : client(new QWidget(&window)),
      menus(new frame::MenuBar(idioma, &window)),
      frame1(named(new QWidget(client), "Frame1")),
      toolbar(new frame::Toolbar(idioma, frame1)),
      label4(named(new QLabel(frame1), "Label4")),
      imageCombo1(named(new controls::ImageCombo(controls::ImageCombo::Typing::Yes, frame1), "ImageCombo1")),
      treeView1(named(new controls::TreeView(client), "TreeView1")),
      listView1(named(new lists::ItemList(client), "ListView1")),
      listView2(named(new lists::ItemList(client), "ListView2")),
      imgSplitter(nullptr),
      picture4(new frame::StatusBand(idioma, client)) {
    window.setCentralWidget(client);
    window.setMenuBar(menus);
    imgSplitter = new controls::Divider(client, [this] {
        return controls::Divider::Bounds{controls::pixels(500), client->width() - controls::pixels(500)};
    });
    frame1->setAccessibleName(frame::caption(u"barradetareas", idioma));
    imgSplitter->setAccessibleName(platform::qtext(dividerName.in(idioma)));
    label4->setText(frame::caption(u"Label4", idioma));
    label4->setBuddy(imageCombo1);
    controls::nameField(*imageCombo1, label4->text());
    treeView1->setAccessibleName(QString::fromStdString(core::rotulos(idioma).rotulounidad));
    listView1->setAccessibleName(frame::caption(u"explorar", idioma));
    listView2->setAccessibleName(frame::caption(u"buscar", idioma));
}

MainWindowParts::MainWindowParts(Form1& owner, core::Language idioma, frame::Messages& messages,
                                 frame::Dialogs& dialogs)
    : window(owner),
      controls(owner, idioma),
      frame{idioma,
            catalogue,
            messages,
            dialogs,
            *controls.menus,
            *controls.toolbar,
            *controls.picture4,
            [this](bool running) {
                jobs += running ? 1 : -1;
                state.running = jobs > 0;
                applyState();
            }},
      picture1(new search::SearchPanel(frame, *controls.listView2, rowMemory, controls.client)),
      picture2(new scan::ImportPanel(frame, importEvents(), controls.client)),
      surface{frame,
              *controls.treeView1,
              *controls.imageCombo1,
              {*controls.listView1, *controls.listView2},
              rowMemory,
              {},
              {},
              {},
              {}},
      picture12(new notes::NotesPanel(frame, surface.lists, surface.clic, controls.client)),
      panes({controls.client,
             controls.frame1,
             controls.toolbar,
             controls.label4,
             controls.imageCombo1,
             controls.treeView1,
             controls.imgSplitter,
             controls.picture4,
             {picture1, picture2},
             {controls.listView1, controls.listView2},
             [this](const QRect& area) { picture12->setListArea(area); }}),
      overTree({picture1, picture2}, *controls.treeView1),
      overListView1({controls.listView2}, *controls.listView1),
      opening(surface, openingEvents()),
      nodeClick(surface),
      pathCombo(surface),
      goingUp(surface),
      listActivation(surface),
      switching(surface, opening, *picture1, *picture2, *picture12, panes),
      catalogueActions(surface, opening, switching, [this](bool open) { showCatalogueOpen(open); }),
      maintenance(surface, opening, switching, *picture1),
      views(surface),
      statistics(frame, &owner) {
    QObject::connect(picture12, &notes::NotesPanel::slid, picture12,
                     [this](int pixels) { panes.setListsPushedDown(pixels); });
}

browse::OpeningEvents MainWindowParts::openingEvents() {
    return {.begins = [this] { resetPanels(); },
            .totalsCounted = [this] { panes.medidas(); },
            .unitsListed = [this](std::span<const core::UnitItem> units) { picture1->setUnits(units); },
            .unitAdded = [this](const core::UnitItem& unit) { picture1->addUnit(unit); }};
}

scan::ImportEvents MainWindowParts::importEvents() {
    return {.walkBegins =
                [this] {
                    surface.treeView1.setFocus();  // before the panel that has it goes
                    switching.uncoverBrowsing();
                },
            .unitScanned =
                [this](const core::UnitItem& unit) {
                    surface.lists.listView1.clear();
                    opening.addUnit(unit);
                },
            .unitTyped =
                [this](const core::UnitItem& unit) {
                    opening.addUnit(unit);
                    switching.explorar1();
                },
            .walkEnds = [this] { switching.pressWhatIsSeen(); },
            .stopped = [this] { reopenAfterStop(); },
            .ended = [this] { opening.actualizar(); }};
}

void MainWindowParts::resetPanels() {
    picture2->fillKinds();
    picture12->closeAtOnce();
    views.showReport();
    views.resetCycle();
    frame::yieldToQueue();
    panes.medidas();
    frame::yieldToQueue();
    picture1->fillTypes();
}

void MainWindowParts::showCatalogueOpen(bool open) {
    state.catalogueOpen = open;
    if (open) state.recentMissing = false;  // from now on there is one
    applyState();
    panes.showBrowsing(open);
    QString title = QStringLiteral("Zarquelin");
    if (open) title += QStringLiteral(" - ") + QFile::decodeName(catalogue.path().c_str());
    window.setWindowTitle(title);
}

void MainWindowParts::reopenAfterStop() {
    surface.lists.listView1.clear();
    surface.lists.listView2.clear();
    surface.treeView1.clear();
    surface.imageCombo1.clear();
    surface.estado.indicecombo = 0;
    picture1->setUnits({});
    catalogue.rememberAsLast();
    catalogueActions.reciente1();
    switching.explorar1();
}

}  // namespace shell
