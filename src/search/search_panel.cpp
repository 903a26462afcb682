#include "search/search_panel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <optional>
#include <utility>

#include "controls/image_combo.h"
#include "controls/pictures.h"
#include "controls/tab_strip.h"
#include "core/failure.h"
#include "engine/database.h"
#include "frame/captions.h"
#include "frame/catalogue.h"
#include "frame/pointer.h"
#include "frame/status_band.h"
#include "lists/item_list.h"
#include "platform/qtext.h"
#include "search/criteria_pages.h"
#include "search/recent_combo.h"
#include "search/refusal.h"

namespace search {
namespace {

constexpr int pictureOfCatalogue = 15;
constexpr int margin = 6;
constexpr int rowsBetweenSigns = 4096;

// Fills the list in one run, so that it is shown once at the end; meanwhile the counters show that it goes
// on.
class ListSink : public ResultSink {
  public:
    ListSink(lists::ItemList& list, core::Language language, lists::RowMemory& memory,
             std::function<void()> goesOn)
        : m_list(list), m_language(language), m_memory(memory), m_goesOn(std::move(goesOn)) {}
    ~ListSink() override { end(); }

    void clear() override {
        end();
        m_list.clear();
        m_list.beginFill();
        m_filling = true;
    }
    void add(const engine::Recordset& row, const Pass& pass) override {
        m_list.add(resultItem(row, pass, m_language, m_memory));
        if (++m_added % rowsBetweenSigns == 0) m_goesOn();
    }

  private:
    void end() {
        if (m_filling) m_list.endFill();
        m_filling = false;
    }

    lists::ItemList& m_list;
    core::Language m_language;
    lists::RowMemory& m_memory;
    std::function<void()> m_goesOn;
    long long m_added = 0;
    bool m_filling = false;
};

QLabel* makeTitle(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setWordWrap(true);
    return label;
}

}  // namespace

SearchPanel::SearchPanel(const frame::Frame& frame, lists::ItemList& listView2, lists::RowMemory& memory,
                         QWidget* parent)
    : QWidget(parent), m_frame(frame), m_listView2(listView2), m_memory(memory) {
    setObjectName(QStringLiteral("Picture1"));
    makeControls();
    frame::applyCaptions(*this, frame.idioma);
    setAccessibleName(frame::caption(u"Label1", frame.idioma));
    m_label5->setAccessibleName(m_label5->text());
    setAutoFillBackground(true);  // it lies over the tree
    connect(&m_idle, &QTimer::timeout, this, &SearchPanel::fillMemory);
    setUnits({});
    hide();
}

void SearchPanel::makeControls() {
    m_combo2 = makeRecentCombo(QStringLiteral("Combo2"), frame::caption(u"Label1", m_frame.idioma),
                               [this] { clickLabel5(); });
    m_label5 = new QPushButton(controls::actionIcon(QStringLiteral("edit-find")), {});
    m_label5->setObjectName(QStringLiteral("Label5"));
    m_label5->setAutoDefault(true);  // Enter clicks it
    connect(m_label5, &QPushButton::clicked, this, &SearchPanel::clickLabel5);

    m_picture15 = new CriteriaPages(m_frame.idioma);
    connect(m_picture15, &CriteriaPages::enterPressed, this, &SearchPanel::enterInField);
    connect(m_picture15, &CriteriaPages::noteEnterPressed, this, &SearchPanel::enterInNote);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(margin, margin, margin, margin);
    m_tabStrip1 = new controls::TabStrip(this);
    m_tabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    m_tabStrip1->setAccessibleName(frame::caption(u"Label12", m_frame.idioma));
    for (int tab = 0; tab < CriteriaPages::count; ++tab) m_tabStrip1->addTab({});
    connect(m_tabStrip1, &QTabBar::currentChanged, this, &SearchPanel::showTab);
    connect(m_tabStrip1, &QTabBar::tabBarClicked, this, &SearchPanel::focusCombo2);

    grid->addWidget(makeTitle(QStringLiteral("Label1")), 0, 0, 1, 2);
    grid->addWidget(m_combo2, 1, 0);
    grid->addWidget(m_label5, 1, 1);
    grid->addWidget(makeTitle(QStringLiteral("Label12")), 2, 0, 1, 2);
    auto* notebook = new QVBoxLayout;  // the strip stands on its pages
    notebook->setSpacing(0);
    notebook->addWidget(m_tabStrip1);
    notebook->addWidget(m_picture15);
    grid->addLayout(notebook, 3, 0, 1, 2);
    grid->setRowStretch(4, 1);
    grid->setColumnStretch(0, 1);
}

void SearchPanel::setTabOrder() {
    QWidget::setTabOrder(m_combo2, m_label5);
    QWidget::setTabOrder(m_label5, m_tabStrip1);
    QWidget* results = &m_listView2;  // or rather the pane in it that takes the focus
    while (results->focusProxy()) results = results->focusProxy();
    QWidget::setTabOrder(&m_picture15->noteField(), results);
}

void SearchPanel::focusCombo2() {
    m_combo2->setFocus();
}

void SearchPanel::showTab(int tab) {
    m_picture15->showPage(tab);
    focusCombo2();
}

void SearchPanel::fillTypes() {
    m_picture15->fillTypes();
}

void SearchPanel::setUnits(std::span<const core::UnitItem> units) {
    m_idle.stop();
    m_searchMemory.clear();  // perhaps of another catalogue
    imageCombo3().clear();
    appendItem({m_frame.rotulos().rotulocatalogo, pictureOfCatalogue});
    imageCombo3().setSelected(1);
    for (const core::UnitItem& unit : units) appendItem(unit);
}

void SearchPanel::appendItem(const core::UnitItem& unit) {
    imageCombo3().addItem(imageCombo3().count() + 1, platform::qtext(unit.disco), unit.picture);
}

int SearchPanel::itemOf(const std::string& disco) {
    return imageCombo3().findText(platform::qtext(disco), Qt::MatchExactly | Qt::MatchCaseSensitive) + 1;
}

// Units that were listed anew during its scan hold it already.
void SearchPanel::addUnit(const core::UnitItem& unit) {
    if (itemOf(unit.disco) == 0) appendItem(unit);
}

void SearchPanel::removeUnit(const std::string& disco) {
    imageCombo3().removeItem(itemOf(disco));
    if (imageCombo3().selectedItem() == 0) imageCombo3().setSelected(1);
}

controls::ImageCombo& SearchPanel::imageCombo3() {
    return m_picture15->units();
}

SearchRequest SearchPanel::request() const {
    SearchRequest request;
    request.name = m_combo2->currentText().toStdString();
    m_picture15->readInto(request);
    return request;
}

void SearchPanel::enterInField() {
    if (m_picture15->isOn(CriteriaPages::Size))
        busquedaconfecha();
    else
        clickLabel5();
}

void SearchPanel::enterInNote() {
    QComboBox& note = m_picture15->noteField();
    if (note.currentText().isEmpty()) return warn(messages::noteOnEnter);
    const bool size = m_picture15->isOn(CriteriaPages::Size);
    enterInField();
    if (!size) rememberText(note);
}

void SearchPanel::clickLabel5() {
    m_counters = {};
    showCounters();
    search(Road::Button);
}

void SearchPanel::busquedaconfecha() {
    search(Road::Straight);
}

void SearchPanel::search(Road road) {
    const SearchRequest asked = request();
    if (const auto refusal = refusalOf(asked, road)) {
        warn(refusal->message);
        if (refusal->asksForName) focusCombo2();
        return;
    }
    std::optional<frame::Hourglass> busy;
    if (road == Road::Button) busy.emplace();
    run(asked);
}

// Statements that the engine refuses find nothing, in silence. A catalogue that cannot be read is told: an
// empty list, or the old one, would pass for the answer.
void SearchPanel::run(const SearchRequest& request) {
    auto database = engine::OpenDatabase(m_frame.catalogue.path(), engine::Use::ReadOnly);
    if (!database) return fail(database.error());
    if (familyOf(request) == Family::Name) rememberText(*m_combo2);
    database->SearchWith(m_searchMemory);
    const auto done = [&] {
        ListSink sink(m_listView2, m_frame.idioma, m_memory, [this] { showCounters(); });
        return runPasses(*database, passesOf(request, m_frame.rotulos()), m_counters, sink);
    }();
    if (!done && !core::isRefusedStatement(done.error())) return fail(done.error());
    showCounters();
    m_idle.start();
}

// While nothing else is to be done, in shares of a few milliseconds, each with a handle of its own: meanwhile
// the catalogue can be written to, compacted and replaced.
void SearchPanel::fillMemory() {
    auto database = engine::OpenDatabase(m_frame.catalogue.path(), engine::Use::ReadOnly);
    if (database) database->SearchWith(m_searchMemory);
    if (!database || !database->FillMemory()) m_idle.stop();
}

void SearchPanel::fail(const engine::Error& error) {
    m_listView2.clear();
    m_counters = {};
    showCounters();
    m_frame.messages.show(
        platform::qtext(core::failureMessage(m_frame.catalogue.path(), error, m_frame.idioma)));
}

void SearchPanel::showCounters() {
    m_frame.status.setText(countersText(m_counters, m_frame.rotulos()));
}

void SearchPanel::warn(core::Bilingual message) {
    m_frame.messages.show(platform::qtext(message.in(m_frame.idioma)));
}

}  // namespace search

#include "moc_search_panel.cpp"
